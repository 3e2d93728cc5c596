#include "surface.h"

#include <cmath>

namespace grub {

// ---- noise

namespace {

/// One grid: values at its corners, an S between them. The grid wraps after `cells`.
float latticeNoise(double gridX, double gridY, int cells, std::uint32_t seed) {
    const double floorX = std::floor(gridX);
    const double floorY = std::floor(gridY);
    const auto wrap = [cells](double v) {
        const int i = static_cast<int>(v) % cells;
        return static_cast<std::uint32_t>(i < 0 ? i + cells : i);
    };
    const std::uint32_t x0 = wrap(floorX);
    const std::uint32_t y0 = wrap(floorY);
    const std::uint32_t x1 = wrap(floorX + 1);
    const std::uint32_t y1 = wrap(floorY + 1);
    const float tx = smoothstep(0, 1, static_cast<float>(gridX - floorX));
    const float ty = smoothstep(0, 1, static_cast<float>(gridY - floorY));
    return mix(mix(randomShare(x0, y0, seed), randomShare(x1, y0, seed), tx),
               mix(randomShare(x0, y1, seed), randomShare(x1, y1, seed), tx), ty);
}

/// See NoiseTile.
float tileableNoise(double x, double y, double period, int cells, std::uint32_t seed) {
    float sum = 0;
    float weight = 1;
    float total = 0;
    for (std::uint32_t octave = 0; octave < 3; ++octave) {
        const double scale = cells / period;
        sum += weight * latticeNoise(x * scale, y * scale, cells, seed + octave);
        total += weight;
        weight /= 2;
        cells *= 2;
    }
    return sum / total;
}

}  // namespace

float randomShare(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    const std::uint32_t bits = stirred(x * 0x9e3779b1U ^ (y * 0x85ebca77U + 0x165667b1U) ^ seed * 0xc2b2ae3dU);
    return static_cast<float>(bits >> 8) / 16777216.0F;
}

NoiseTile::NoiseTile(double period, int cells, std::uint32_t seed, int samples) : samples_(samples) {
    values_.reserve(static_cast<std::size_t>(samples) * static_cast<std::size_t>(samples));
    for (int y = 0; y < samples; ++y) {
        for (int x = 0; x < samples; ++x) {
            const double step = period / samples;
            values_.push_back(tileableNoise((x + 0.5) * step, (y + 0.5) * step, period, cells, seed));
        }
    }
}

// ---- light

namespace {

/// The key light, of length 1.
constexpr Normal kKey{-0.1001F, -0.7605F, 0.6405F};
/// Half-way between key light and eye, of length 1.
constexpr Normal kHalf{-0.0552F, -0.4199F, 0.9059F};
/// The rim lights stand at (+-0.88, 0.37, 0.30): a little below and in front on either side.
constexpr Normal kRim{0.879F, 0.366F, 0.305F};

/// How far light reaches round a form.
constexpr float kWrap = 0.35F;

/// Share of the two-tone step in the light; the rest follows the form smoothly.
constexpr float kStepShare = 0.62F;

/// Smoothing of the heights: a Gaussian of this share of the bevel, mixed in by that much.
constexpr double kSmoothing = 0.22;
constexpr float kSmoothShare = 0.55F;

/// What takes the steps of an edge out of the heights beside it, in samples.
constexpr double kEdgeBlur = 1.2;

constexpr float dot(const Normal& a, const Normal& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

FloatPlane roundedHeights(const FloatPlane& inside, float bevel) {
    FloatPlane heights(inside.width(), inside.height());
    for (int y = 0; y < heights.height(); ++y) {
        for (int x = 0; x < heights.width(); ++x) {
            const float t = 1 - std::min(inside.at(x, y) / bevel, 1.0F);
            heights.at(x, y) = bevel * std::sqrt(1 - t * t);
        }
    }
    return heights;
}

/// Mixes in the mean of the heights around each sample, as far as they are solid.
void smooth(FloatPlane& heights, const FloatPlane& solid, double sigma, float share) {
    const FloatPlane weights = blurred(solid, sigma);
    const FloatPlane sums = blurred(heights, sigma);
    for (int y = 0; y < heights.height(); ++y) {
        for (int x = 0; x < heights.width(); ++x) {
            if (solid.at(x, y) <= 0) continue;
            const float mean = sums.at(x, y) / std::max(weights.at(x, y), 0.001F);
            heights.at(x, y) = mix(heights.at(x, y), mean, share);
        }
    }
}

}  // namespace

FloatPlane puffyHeights(const FloatPlane& coverage, double bevel) {
    const FloatPlane inside = distanceField(coverage, DistanceFrom::Inside);
    FloatPlane heights = roundedHeights(inside, static_cast<float>(bevel));
    FloatPlane solid(coverage.width(), coverage.height());
    for (int y = 0; y < solid.height(); ++y) {
        for (int x = 0; x < solid.width(); ++x) solid.at(x, y) = inside.at(x, y) > 0 ? 1.0F : 0.0F;
    }
    smooth(heights, solid, kEdgeBlur, 1);
    smooth(heights, solid, std::max(0.8, kSmoothing * bevel), kSmoothShare);
    return heights;
}

Normal normalAt(const FloatPlane& heights, int x, int y) {
    const int left = std::max(x - 1, 0);
    const int right = std::min(x + 1, heights.width() - 1);
    const int up = std::max(y - 1, 0);
    const int down = std::min(y + 1, heights.height() - 1);
    const float gx = (heights.at(right, y) - heights.at(left, y)) / static_cast<float>(std::max(right - left, 1));
    const float gy = (heights.at(x, down) - heights.at(x, up)) / static_cast<float>(std::max(down - up, 1));
    const float scale = 1 / std::sqrt(gx * gx + gy * gy + 1);
    return {-gx * scale, -gy * scale, scale};
}

Rgb shade(const Material& m, const Normal& n) {
    const float light = clamp01((dot(n, kKey) + kWrap) / (1 + kWrap));
    const float terminator = 0.18F * m.softness;
    const float step = smoothstep(0.5F - terminator, 0.5F + terminator + 0.001F, light);
    const float lit = kStepShare * step + (1 - kStepShare) * light;
    Rgb colour = mix(m.shadow, m.base, clamp01(lit * 1.25F));
    colour = mix(colour, m.light, smoothstep(0.74F, 1, light) * 0.75F);
    const float bounce = std::max(n.y, 0.0F) * (1 - step) * m.bounce;
    colour = colour + mix(m.base, rgb(0xffd9a0), 0.4F) * bounce;
    const float side = std::abs(n.x) * kRim.x + n.y * kRim.y + n.z * kRim.z;
    colour = mix(colour, rgb(0xffe9c0), clamp01(smoothstep(0.25F, 0.85F, side) * (1 - n.z) * m.rim));
    return mix(colour, rgb(0xffffff), smoothstep(0.955F, 0.992F, dot(n, kHalf)) * m.gloss);
}

}  // namespace grub
