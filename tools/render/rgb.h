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

}  // namespace grub
