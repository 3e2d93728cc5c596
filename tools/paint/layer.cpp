#include "layer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "surface.h"

namespace grub {

namespace {

/// Side of a map cell in design pixels: noise repeats after it, so that cells join without seams.
constexpr double kCell = 64;

/// Squares of the noise to a design pixel: as many as a strip has samples, so that it reads the noise unscaled.
constexpr int kNoiseDensity = 4;
constexpr int kNoiseSquares = static_cast<int>(kCell) * kNoiseDensity;

/// Grid cells of the roughness (2.3 px) and of the grain (1.3 px) over one map cell.
constexpr int kBumpCells = 28;
constexpr int kGrainCells = 48;
constexpr std::uint32_t kBumpSeed = 3;
constexpr std::uint32_t kGrainSeed = 7;

const NoiseTile& bumpNoise() {
    static const NoiseTile tile{kCell, kBumpCells, kBumpSeed, kNoiseSquares};
    return tile;
}
const NoiseTile& grainNoise() {
    static const NoiseTile tile{kCell, kGrainCells, kGrainSeed, kNoiseSquares};
    return tile;
}

/// Reads noise sample by sample. The noise grows with the magnification, in whole samples a design pixel, so that a
/// turn or a squash does not make the grain of a stone swim.
class NoiseReader {
public:
    NoiseReader(double magnification, int origin)
        : step_(kNoiseDensity / std::max(1.0, std::round(magnification))), origin_(origin) {}

    float at(const NoiseTile& tile, int x, int y) const {
        if (step_ == 1) return tile.at(x - origin_, y - origin_);
        return tile.between((x - origin_ + 0.5) * step_ - 0.5, (y - origin_ + 0.5) * step_ - 0.5);
    }

private:
    double step_;
    int origin_;
};

Box haloBox(Point centre, double side, double up, double down) {
    return boxAround({centre - Point{side, up}, centre + Point{side, down}});
}

}  // namespace

Layer::Layer(const Box& box) : box_(box) {
    if (!box.empty()) samples_.resize(static_cast<std::size_t>(box.width()) * static_cast<std::size_t>(box.height()));
}

void Layer::lay(int x, int y, Rgb colour, float alpha) {
    Sample& under = sample(x, y);
    under.colour = colour * alpha + under.colour * (1 - alpha);
    under.alpha = alpha + under.alpha * (1 - alpha);
}

void Layer::touch(const Box& box) {
    if (!box.empty()) touched_ = touched_.empty() ? box : touched_.around(box);
}

// ---- strokes

void Layer::fill(const Mask& mask, Rgb colour, float alpha) {
    touch(mask.box);
    for (int y = mask.box.y0; y < mask.box.y1; ++y) {
        for (int x = mask.box.x0; x < mask.box.x1; ++x) lay(x, y, colour, mask.at(x, y) * alpha);
    }
}

void Layer::castShadow(const Mask& mask, double blur, int dx, int dy, float strength) {
    const Box below = mask.box.within(touched_);
    if (below.empty()) return;
    const FloatPlane soft = blurred(mask.coverage, blur);
    for (int y = std::max(dy, 0); y < mask.box.height(); ++y) {
        for (int x = std::max(dx, 0); x < mask.box.width(); ++x) {
            const float shade = strength * soft.at(x - dx, y - dy) * (1 - mask.coverage.at(x, y));
            Sample& under = sample(mask.box.x0 + x, mask.box.y0 + y);
            under.colour = under.colour * (1 - shade);
        }
    }
}

void Layer::drawLine(const Mask& mask, double width, Rgb ink, float alpha) {
    touch(mask.box);
    const auto reach = static_cast<float>(width) + 0.5F;
    const FloatPlane outside = distanceField(mask.coverage, DistanceFrom::Outside, reach);
    for (int y = 0; y < mask.box.height(); ++y) {
        for (int x = 0; x < mask.box.width(); ++x) {
            const float line = clamp01(reach - outside.at(x, y));
            if (line > 0) lay(mask.box.x0 + x, mask.box.y0 + y, ink, line * alpha);
        }
    }
}

void Layer::drawSurface(const Mask& shape, const Material& material, double bevel, double magnification, int origin,
                        float alpha) {
    const Mask mask = trimmed(shape);
    touch(mask.box);
    FloatPlane heights = puffyHeights(mask.coverage, bevel);
    const NoiseReader noise(magnification, origin);
    if (material.bump > 0) {
        const float roughness = material.bump * static_cast<float>(magnification);
        for (int y = 0; y < heights.height(); ++y) {
            for (int x = 0; x < heights.width(); ++x)
                heights.at(x, y) += noise.at(bumpNoise(), mask.box.x0 + x, mask.box.y0 + y) * roughness;
        }
    }
    for (int y = 0; y < heights.height(); ++y) {
        for (int x = 0; x < heights.width(); ++x) {
            const float covered = mask.coverage.at(x, y);
            if (covered <= 0) continue;
            Rgb colour = shade(material, normalAt(heights, x, y));
            if (material.grain > 0) {
                const float grain = noise.at(grainNoise(), mask.box.x0 + x, mask.box.y0 + y);
                colour = colour * (1 + material.grain * (grain - 0.5F) * 2);
            }
            lay(mask.box.x0 + x, mask.box.y0 + y, colour, covered * alpha);
        }
    }
}

void Layer::stamp(const PixelImage& picture, int x, int y, int side) {
    const Box box = Box{x, y, x + picture.width * side, y + picture.height * side}.within(box_);
    touch(box);
    for (int row = box.y0; row < box.y1; ++row) {
        for (int column = box.x0; column < box.x1; ++column) {
            const Pixel p = picture.at((column - x) / side, (row - y) / side);
            lay(column, row, rgb(static_cast<std::uint32_t>(p.r << 16 | p.g << 8 | p.b)),
                static_cast<float>(p.a) / 255);
        }
    }
}

// ---- light

void Layer::glow(Point centre, double radius, Rgb colour, float strength) {
    const Box lit = haloBox(centre, radius, radius, radius).within(touched_);
    for (int y = lit.y0; y < lit.y1; ++y) {
        for (int x = lit.x0; x < lit.x1; ++x) {
            const float near =
                clamp01(static_cast<float>(1 - std::hypot(x + 0.5 - centre.x, y + 0.5 - centre.y) / radius));
            if (near <= 0) continue;
            Sample& s = sample(x, y);
            const float k = near * near * strength * s.alpha;
            s.colour = {1 - (1 - s.colour.r) * (1 - k * colour.r), 1 - (1 - s.colour.g) * (1 - k * colour.g),
                        1 - (1 - s.colour.b) * (1 - k * colour.b)};
        }
    }
}

void Layer::halo(Point centre, double side, double up, double down, Rgb colour, float strength) {
    const Box lit = haloBox(centre, side, up, down).within(box_);
    touch(lit);
    for (int y = lit.y0; y < lit.y1; ++y) {
        const double dy = y + 0.5 - centre.y;
        const double v = dy / (dy < 0 ? up : down);
        for (int x = lit.x0; x < lit.x1; ++x) {
            const float near = clamp01(static_cast<float>(1 - std::hypot((x + 0.5 - centre.x) / side, v)));
            if (near > 0) lay(x, y, colour, near * near * strength);
        }
    }
}

void Layer::dimAround(Point centre, double radius, float dark) {
    for (int y = touched_.y0; y < touched_.y1; ++y) {
        for (int x = touched_.x0; x < touched_.x1; ++x) {
            const double away = std::hypot(x + 0.5 - centre.x, y + 0.5 - centre.y) / radius;
            Sample& s = sample(x, y);
            s.colour = s.colour * mix(1, dark, smoothstep(0, 1, static_cast<float>(away)));
        }
    }
}

void Layer::shadeRows(double y0, double y1, float above, float below, const Mask* clip) {
    const Box shaded = clip == nullptr ? touched_ : touched_.within(clip->box);
    for (int y = shaded.y0; y < shaded.y1; ++y) {
        const float k = mix(above, below, clamp01(static_cast<float>((y + 0.5 - y0) / (y1 - y0))));
        for (int x = shaded.x0; x < shaded.x1; ++x) {
            const float where = clip == nullptr ? 1.0F : clip->at(x, y);
            Sample& s = sample(x, y);
            s.colour = s.colour * mix(1, k, where);
        }
    }
}

// ---- the whole

Mask Layer::shape() const {
    if (touched_.empty()) return {};
    Mask shape{touched_, FloatPlane(touched_.width(), touched_.height())};
    for (int y = 0; y < touched_.height(); ++y) {
        for (int x = 0; x < touched_.width(); ++x) shape.coverage.at(x, y) = at(touched_.x0 + x, touched_.y0 + y).alpha;
    }
    return shape;
}

void Layer::outline(double width, Rgb ink) {
    const auto reach = static_cast<float>(width) + 0.5F;
    touch(touched_.grown(static_cast<int>(reach) + 1).within(box_));
    const FloatPlane outside = distanceField(shape().coverage, DistanceFrom::Outside, reach);
    for (int y = touched_.y0; y < touched_.y1; ++y) {
        for (int x = touched_.x0; x < touched_.x1; ++x) {
            Sample& s = sample(x, y);
            const float under = clamp01(reach - outside.at(x - touched_.x0, y - touched_.y0)) * (1 - s.alpha);
            s.colour = s.colour + ink * under;
            s.alpha += under;
        }
    }
}

void Layer::tint(const Tint& tint) {
    for (int y = touched_.y0; y < touched_.y1; ++y) {
        for (int x = touched_.x0; x < touched_.x1; ++x) {
            Sample& s = sample(x, y);
            s.colour = mix(s.colour, tint.colour * s.alpha, tint.share);
        }
    }
}

void Layer::blur(double sigma) {
    if (touched_.empty()) return;
    touch(touched_.grown(static_cast<int>(std::ceil(3 * sigma))).within(box_));
    using Channel = float& (*)(Sample&);
    constexpr std::array<Channel, 4> kChannels{
        [](Sample& s) -> float& { return s.colour.r; }, [](Sample& s) -> float& { return s.colour.g; },
        [](Sample& s) -> float& { return s.colour.b; }, [](Sample& s) -> float& { return s.alpha; }};
    for (const Channel channel : kChannels) {
        FloatPlane plane(touched_.width(), touched_.height());
        for (int y = 0; y < plane.height(); ++y) {
            for (int x = 0; x < plane.width(); ++x) plane.at(x, y) = channel(sample(touched_.x0 + x, touched_.y0 + y));
        }
        plane = blurred(std::move(plane), sigma);
        for (int y = 0; y < plane.height(); ++y) {
            for (int x = 0; x < plane.width(); ++x) channel(sample(touched_.x0 + x, touched_.y0 + y)) = plane.at(x, y);
        }
    }
}

void Layer::layOver(const Layer& other, float cover, const Mask* clip) {
    Box where = other.touched_.within(box_);
    if (clip != nullptr) where = where.within(clip->box);
    touch(where);
    for (int y = where.y0; y < where.y1; ++y) {
        for (int x = where.x0; x < where.x1; ++x) {
            const Sample& over = other.at(x, y);
            const float share = clip == nullptr ? cover : cover * clip->at(x, y);
            Sample& under = sample(x, y);
            under.colour = over.colour * share + under.colour * (1 - over.alpha * share);
            under.alpha = over.alpha * share + under.alpha * (1 - over.alpha * share);
        }
    }
}

}  // namespace grub
