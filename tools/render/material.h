#pragma once

#include "rgb.h"

namespace grub {

/// What a part is made of: colours of light and shadow, and how its surface answers to light.
struct Material {
    Rgb base;
    Rgb shadow;
    Rgb light;
    Rgb ink;
    /// Strength of the highlight: 0.1 cloth, 0.85 painted helmet, 1 metal.
    float gloss = 0.35F;
    /// Strength of the warm light along both sides.
    float rim = 0.35F;
    /// Strength of the warm light from below.
    float bounce = 0.15F;
    /// Width of the step between light and shadow: 0 hard to 1 soft.
    float softness = 0.5F;
    /// Height of the surface's roughness, in design pixels.
    float bump = 0;
    /// Share by which brightness varies from grain to grain.
    float grain = 0;
};

/// A material of three colours; its line is its own shadow, darkened and mixed with ink.
constexpr Material material(Rgb base, Rgb shadow, Rgb light) {
    Material m;
    m.base = base;
    m.shadow = shadow;
    m.light = light;
    m.ink = mix(shadow * 0.38F, kInk, 0.6F);
    return m;
}

/// The same from web codes.
constexpr Material material(std::uint32_t base, std::uint32_t shadow, std::uint32_t light) {
    return material(rgb(base), rgb(shadow), rgb(light));
}

/// Shadows shift to violet, lights to warm cream.
constexpr Material material(Rgb base) {
    return material(base, mix(base * 0.5F, rgb(0x2a1f5a), 0.3F), mix(base, rgb(0xfff6d8), 0.42F));
}

/// The same material with another shine: see `gloss` and `rim` of Material.
constexpr Material glossy(Material m, float gloss, float rim = 0.35F) {
    m.gloss = gloss;
    m.rim = rim;
    return m;
}

/// Stone, brick, earth: no shine, little rim, rough.
constexpr Material stony(Rgb base, float bump, float grain, float gloss = 0.05F) {
    Material m = material(base);
    m.gloss = gloss;
    m.rim = 0.1F;
    m.bounce = 0.05F;
    m.softness = 0.9F;
    m.bump = bump;
    m.grain = grain;
    return m;
}

/// Shared by several drawings, so that teeth, tools and treasure look alike everywhere.
inline constexpr Material kEnamel = glossy(material(0xffffff, 0xc9cbe4, 0xffffff), 0.2F);
inline constexpr Material kMetal = glossy(material(0xb9c4d0, 0x4d5876, 0xf4fbff), 1, 0.5F);
inline constexpr Material kDarkMetal = glossy(material(0x6b7690, 0x30364f, 0xb4c0d4), 0.7F, 0.4F);
inline constexpr Material kWood = glossy(material(0xb5763c, 0x5f3336, 0xe6b06a), 0.3F);
inline constexpr Material kGold = glossy(material(0xffc93a, 0xb8622a, 0xfff3b0), 1, 0.6F);

}  // namespace grub
