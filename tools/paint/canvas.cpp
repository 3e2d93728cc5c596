#include "canvas.h"

#include <cmath>
#include <map>
#include <mutex>

#include "mask.h"
#include "surface.h"

namespace grub {

namespace {

/// Side of a map cell: noise repeats after it, so that cells join without seams.
constexpr double kCell = 64;

/// Grid cells of the roughness (2.3 px) and of the grain (1.3 px) over one map cell.
constexpr int kBumpCells = 28;
constexpr int kGrainCells = 48;
constexpr std::uint32_t kBumpSeed = 3;
constexpr std::uint32_t kGrainSeed = 7;

/// The contact shadow: blur and offset in design pixels.
constexpr double kShadowBlur = 1.3;
constexpr Point kShadowOffset{0.9, 1.6};

/// A border's own line, and the shadow that falls on it.
constexpr double kBorderLine = 1.2;
constexpr float kBorderShade = 0.25F;

/// Lines grow more slowly than the picture.
constexpr double kLineGrowth = 0.75;

/// Roughness and grain of surfaces, over one map cell.
struct SurfaceNoise {
    NoiseTile bump;
    NoiseTile grain;
};

/// For so many samples a cell; computed when they are first asked for. Safe from any thread.
const SurfaceNoise& surfaceNoise(int samples) {
    static std::mutex mutex;
    static std::map<int, SurfaceNoise> known;
    const std::scoped_lock lock(mutex);
    const auto found = known.find(samples);
    if (found != known.end()) return found->second;
    return known
        .emplace(samples,
                 SurfaceNoise{{kCell, kBumpCells, kBumpSeed, samples}, {kCell, kGrainCells, kGrainSeed, samples}})
        .first->second;
}

void cut(Mask& mask, const Mask* clip) {
    if (clip == nullptr) return;
    for (int y = mask.box.y0; y < mask.box.y1; ++y) {
        for (int x = mask.box.x0; x < mask.box.x1; ++x) {
            mask.coverage.at(x - mask.box.x0, y - mask.box.y0) *= clip->at(x, y);
        }
    }
}

std::uint8_t byteOf(float value) { return static_cast<std::uint8_t>(std::lround(clamp01(value) * 255.0F)); }

}  // namespace

Canvas::Canvas(int width, int height, int samples, double scale, int margin)
    : width_(width), height_(height), sampling_(samples), scale_(scale), margin_(margin) {
    const int around = static_cast<int>(margin * scale * samples);
    box_ = {0, 0, width * samples + 2 * around, height * samples + 2 * around};
    samples_.resize(static_cast<std::size_t>(box_.x1) * static_cast<std::size_t>(box_.y1));
    const double s = samples * scale;
    place_ = Affine{}.scaled(s, s).translated({static_cast<double>(margin), static_cast<double>(margin)});
}

double Canvas::lineSamples(double width) const { return width * sampling_ * std::pow(scale_, kLineGrowth); }

void Canvas::lay(int x, int y, Rgb colour, float alpha) {
    Sample& under = sample(x, y);
    under.colour = colour * alpha + under.colour * (1 - alpha);
    under.alpha = alpha + under.alpha * (1 - alpha);
}

Mask Canvas::mask(const VectorPath& path, std::optional<double> stroke) const {
    return rasterise(path, place_, stroke, 0, box_);
}

void Canvas::part(const VectorPath& path, const Material& material, const PartStyle& style) {
    const double magnification = place_.magnification();
    const int margin = static_cast<int>(lineSamples(style.line) + 6 * magnification) + 3;
    Mask mask = rasterise(path, place_, style.stroke, margin, box_);
    if (mask.box.empty()) return;
    cut(mask, style.clip);
    if (style.shadow > 0) castShadow(mask, magnification, style.shadow);
    if (style.line > 0) drawLine(mask, lineSamples(style.line), material.ink, style.alpha);
    drawSurface(mask, material, style.bevel * magnification, magnification, style.alpha);
}

void Canvas::castShadow(const Mask& mask, double magnification, float strength) {
    const FloatPlane soft = blurred(mask.coverage, kShadowBlur * magnification);
    const int dx = static_cast<int>(std::lround(kShadowOffset.x * magnification));
    const int dy = static_cast<int>(std::lround(kShadowOffset.y * magnification));
    for (int y = std::max(dy, 0); y < mask.box.height(); ++y) {
        for (int x = std::max(dx, 0); x < mask.box.width(); ++x) {
            const float shade = strength * soft.at(x - dx, y - dy) * (1 - mask.coverage.at(x, y));
            Sample& under = sample(mask.box.x0 + x, mask.box.y0 + y);
            under.colour = under.colour * (1 - shade);
        }
    }
}

void Canvas::drawLine(const Mask& mask, double width, Rgb ink, float alpha) {
    const FloatPlane outside = distanceField(mask.coverage, DistanceFrom::Outside);
    const auto reach = static_cast<float>(width) + 0.5F;
    for (int y = 0; y < mask.box.height(); ++y) {
        for (int x = 0; x < mask.box.width(); ++x) {
            const float line = clamp01(reach - outside.at(x, y));
            if (line > 0) lay(mask.box.x0 + x, mask.box.y0 + y, ink, line * alpha);
        }
    }
}

void Canvas::drawSurface(const Mask& mask, const Material& material, double bevel, double magnification, float alpha) {
    FloatPlane heights = puffyHeights(mask.coverage, bevel);
    const SurfaceNoise& noise = surfaceNoise(static_cast<int>(std::lround(kCell * scale_ * sampling_)));
    const int origin = static_cast<int>(std::lround(margin_ * scale_ * sampling_));
    const auto noiseAt = [&](const NoiseTile& tile, int x, int y) {
        return tile.at(mask.box.x0 + x - origin, mask.box.y0 + y - origin);
    };
    if (material.bump > 0) {
        const float roughness = material.bump * static_cast<float>(magnification);
        for (int y = 0; y < heights.height(); ++y) {
            for (int x = 0; x < heights.width(); ++x) heights.at(x, y) += noiseAt(noise.bump, x, y) * roughness;
        }
    }
    for (int y = 0; y < heights.height(); ++y) {
        for (int x = 0; x < heights.width(); ++x) {
            const float covered = mask.coverage.at(x, y);
            if (covered <= 0) continue;
            Rgb colour = shade(material, normalAt(heights, x, y));
            if (material.grain > 0) {
                colour = colour * (1 + material.grain * (noiseAt(noise.grain, x, y) - 0.5F) * 2);
            }
            lay(mask.box.x0 + x, mask.box.y0 + y, colour, covered * alpha);
        }
    }
}

void Canvas::flat(const VectorPath& path, Rgb colour, const FlatStyle& style) {
    Mask mask = rasterise(path, place_, style.stroke, 0, box_);
    cut(mask, style.clip);
    for (int y = mask.box.y0; y < mask.box.y1; ++y) {
        for (int x = mask.box.x0; x < mask.box.x1; ++x) lay(x, y, colour, mask.at(x, y) * style.alpha);
    }
}

void Canvas::layOver(const Canvas& other, const Mask& where) {
    for (int y = where.box.y0; y < where.box.y1; ++y) {
        for (int x = where.box.x0; x < where.box.x1; ++x) {
            const Sample& over = other.sample(x, y);
            const float share = where.at(x, y);
            Sample& under = sample(x, y);
            under.colour = over.colour * share + under.colour * (1 - over.alpha * share);
            under.alpha = over.alpha * share + under.alpha * (1 - over.alpha * share);
        }
    }
}

void Canvas::layOver(const Canvas& other, float cover) {
    layOver(other, {box_, FloatPlane(box_.width(), box_.height(), cover)});
}

void Canvas::glow(Point centre, double radius, Rgb colour, float strength) {
    const Point c = place_.apply(centre);
    const double r = radius * place_.magnification();
    for (int y = 0; y < box_.y1; ++y) {
        for (int x = 0; x < box_.x1; ++x) {
            const float near = clamp01(static_cast<float>(1 - std::hypot(x + 0.5 - c.x, y + 0.5 - c.y) / r));
            if (near <= 0) continue;
            Sample& s = sample(x, y);
            const float k = near * near * strength * s.alpha;
            s.colour = {1 - (1 - s.colour.r) * (1 - k * colour.r), 1 - (1 - s.colour.g) * (1 - k * colour.g),
                        1 - (1 - s.colour.b) * (1 - k * colour.b)};
        }
    }
}

void Canvas::halo(Point centre, double radius, Rgb colour, float strength) {
    haloBetween(centre, radius, radius, radius, colour, strength);
}

void Canvas::haloBetween(Point centre, double side, double up, double down, Rgb colour, float strength) {
    const Point c = place_.apply(centre);
    const double k = place_.magnification();
    for (int y = 0; y < box_.y1; ++y) {
        const double dy = y + 0.5 - c.y;
        const double v = dy / (k * (dy < 0 ? up : down));
        for (int x = 0; x < box_.x1; ++x) {
            const float near = clamp01(static_cast<float>(1 - std::hypot((x + 0.5 - c.x) / (k * side), v)));
            if (near > 0) lay(x, y, colour, near * near * strength);
        }
    }
}

void Canvas::shadeRows(double y0, double y1, float above, float below, const Mask* clip) {
    const double first = place_.apply({0, y0}).y;
    const double last = place_.apply({0, y1}).y;
    for (int y = 0; y < box_.y1; ++y) {
        const float k = mix(above, below, clamp01(static_cast<float>((y + 0.5 - first) / (last - first))));
        for (int x = 0; x < box_.x1; ++x) {
            const float where = clip == nullptr ? 1.0F : clip->at(x, y);
            Sample& s = sample(x, y);
            s.colour = s.colour * mix(1, k, where);
        }
    }
}

Mask Canvas::drawn() const {
    Mask shape{box_, FloatPlane(box_.width(), box_.height())};
    for (int y = 0; y < box_.y1; ++y) {
        for (int x = 0; x < box_.x1; ++x) shape.coverage.at(x, y) = sample(x, y).alpha;
    }
    return shape;
}

void Canvas::border(double width, const Material& material) {
    const Mask shape = drawn();
    const FloatPlane outside = distanceField(shape.coverage, DistanceFrom::Outside);
    const auto reach = static_cast<float>(lineSamples(width)) + 0.5F;
    Mask grown = shape;
    for (int y = 0; y < box_.y1; ++y) {
        for (int x = 0; x < box_.x1; ++x) grown.coverage.at(x, y) = clamp01(reach - outside.at(x, y));
    }
    Canvas under = blankCopy();
    const double magnification = place_.magnification();
    under.drawLine(grown, lineSamples(kBorderLine), material.ink, 1);
    under.drawSurface(grown, material, width * magnification, magnification, 1);
    under.castShadow(shape, magnification, kBorderShade);
    under.layOver(*this);
    samples_ = std::move(under.samples_);
}

void Canvas::outline(double width, Rgb ink) {
    const FloatPlane outside = distanceField(drawn().coverage, DistanceFrom::Outside);
    const auto reach = static_cast<float>(lineSamples(width)) + 0.5F;
    for (int y = 0; y < box_.y1; ++y) {
        for (int x = 0; x < box_.x1; ++x) {
            Sample& s = sample(x, y);
            const float under = clamp01(reach - outside.at(x, y)) * (1 - s.alpha);
            s.colour = s.colour + ink * under;
            s.alpha += under;
        }
    }
}

PixelImage Canvas::picture() const {
    PixelImage image(width_, height_);
    const int first = static_cast<int>(margin_ * scale_ * sampling_);
    const float share = 1.0F / static_cast<float>(sampling_ * sampling_);
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            Sample sum;
            for (int i = 0; i < sampling_ * sampling_; ++i) {
                const Sample& s = sample(first + x * sampling_ + i % sampling_, first + y * sampling_ + i / sampling_);
                sum.colour = sum.colour + s.colour;
                sum.alpha += s.alpha;
            }
            if (sum.alpha * share < 0.002F) continue;
            const Rgb colour = sum.colour * (1 / sum.alpha);
            image.at(x, y) = {byteOf(colour.r), byteOf(colour.g), byteOf(colour.b), byteOf(sum.alpha * share)};
        }
    }
    return image;
}

}  // namespace grub
