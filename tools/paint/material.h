#pragma once

#include <algorithm>
#include <cstdint>

namespace grub {

/// A colour as light is mixed: red, green and blue, 0 dark to 1 bright.
struct Rgb {
    float r = 0;
    float g = 0;
    float b = 0;
};

/// The colour of a web code such as 0xf0592b.
constexpr Rgb rgb(std::uint32_t code) {
    const auto channel = [code](int shift) { return static_cast<float>((code >> shift) & 0xffU) / 255.0F; };
    return {channel(16), channel(8), channel(0)};
}

/// Results may leave 0 to 1: highlights add up before they are limited.
constexpr Rgb operator*(Rgb c, float k) { return {c.r * k, c.g * k, c.b * k}; }
constexpr Rgb operator+(Rgb a, Rgb b) { return {a.r + b.r, a.g + b.g, a.b + b.b}; }

/// From `a` (t = 0) to `b` (t = 1); t is not limited.
constexpr float mix(float a, float b, float t) { return a + (b - a) * t; }
constexpr Rgb mix(Rgb a, Rgb b, float t) { return {mix(a.r, b.r, t), mix(a.g, b.g, t), mix(a.b, b.b, t)}; }

/// Limits to 0 to 1.
constexpr float clamp01(float x) { return std::clamp(x, 0.0F, 1.0F); }

/// 0 up to `from`, 1 from `to` on, a soft S between.
constexpr float smoothstep(float from, float to, float x) {
    const float t = clamp01((x - from) / (to - from));
    return t * t * (3.0F - 2.0F * t);
}

/// What lines are drawn with: a violet that stands for black.
inline constexpr Rgb kInk = rgb(0x241a2e);

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
