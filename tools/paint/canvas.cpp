#include "canvas.h"

#include <cmath>

namespace grub {

namespace {

/// The contact shadow: blur and offset in design pixels.
constexpr double kShadowBlur = 1.3;
constexpr Point kShadowOffset{0.9, 1.6};

/// A border's own line, and the shadow that falls on it.
constexpr double kBorderLine = 1.2;
constexpr float kBorderShade = 0.25F;

/// Lines grow more slowly than the picture.
constexpr double kLineGrowth = 0.75;

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

Canvas::Canvas(int width, int height, int samples, int margin)
    : width_(width), height_(height), sampling_(samples), margin_(margin) {
    layers_.emplace_back(Box{0, 0, (width + 2 * margin) * samples, (height + 2 * margin) * samples});
    place_ = Affine{}.scaled(samples, samples).translated({static_cast<double>(margin), static_cast<double>(margin)});
}

double Canvas::lineSamples(double width) const {
    return width * sampling_ * std::pow(place_.magnification() / sampling_, kLineGrowth);
}

// ---- groups

Box Canvas::boxOf(const Rect& rect) const {
    return boxAround({place_.apply({rect.x, rect.y}), place_.apply({rect.right(), rect.y}),
                      place_.apply({rect.x, rect.bottom()}), place_.apply({rect.right(), rect.bottom()})});
}

Canvas::Group::Group(Canvas& canvas, const GroupStyle& style) : canvas_(canvas), style_(style), outer_(canvas.place_) {
    const Box below = canvas.layer().box();
    canvas.layers_.emplace_back(style.box ? canvas.boxOf(*style.box).within(below) : below);
    if (style.mirrored && style.box)
        canvas.place_ = canvas.place_.translated({style.box->x + style.box->right(), 0}).scaled(-1, 1);
}

Canvas::Group::~Group() {
    canvas_.place_ = outer_;
    Layer group = std::move(canvas_.layers_.back());
    canvas_.layers_.pop_back();
    if (style_.tint.share > 0) group.tint(style_.tint);
    if (style_.outline > 0) group.outline(canvas_.lineSamples(style_.outline), style_.ink);
    if (style_.blur > 0) group.blur(style_.blur * canvas_.place_.magnification());
    if (style_.shadow > 0) canvas_.castShadow(canvas_.layer(), group.shape(), style_.shadow);
    canvas_.layer().layOver(group, style_.cover, style_.clip);
}

// ---- strokes

Mask Canvas::mask(const VectorPath& path, std::optional<double> stroke) const {
    return rasterise(path, place_, stroke, 0, layer().box());
}

void Canvas::castShadow(Layer& on, const Mask& mask, float strength) const {
    const double magnification = place_.magnification();
    on.castShadow(mask, kShadowBlur * magnification, static_cast<int>(std::lround(kShadowOffset.x * magnification)),
                  static_cast<int>(std::lround(kShadowOffset.y * magnification)), strength);
}

void Canvas::part(const VectorPath& path, const Material& material, const PartStyle& style) {
    const double magnification = place_.magnification();
    const int margin = static_cast<int>(lineSamples(style.line) + 6 * magnification) + 3;
    Mask mask = rasterise(path, place_, style.stroke, margin, layer().box());
    if (mask.box.empty()) return;
    cut(mask, style.clip);
    if (style.shadow > 0) castShadow(layer(), mask, style.shadow);
    if (style.line > 0) layer().drawLine(mask, lineSamples(style.line), material.ink, style.alpha);
    layer().drawSurface(mask, material, style.bevel * magnification, magnification, margin_ * sampling_, style.alpha);
}

void Canvas::flat(const VectorPath& path, Rgb colour, const FlatStyle& style) {
    Mask mask = rasterise(path, place_, style.stroke, 0, layer().box());
    cut(mask, style.clip);
    layer().fill(mask, colour, style.alpha);
}

void Canvas::stamp(const PixelImage& picture, Point at) {
    const Point corner = place_.apply(at);
    const auto wholePixel = [this](double v) { return static_cast<int>(std::lround(v / sampling_)) * sampling_; };
    layer().stamp(picture, wholePixel(corner.x), wholePixel(corner.y), sampling_);
}

void Canvas::glow(Point centre, double radius, Rgb colour, float strength) {
    layer().glow(place_.apply(centre), radius * place_.magnification(), colour, strength);
}

void Canvas::halo(Point centre, double radius, Rgb colour, float strength) {
    haloBetween(centre, radius, radius, radius, colour, strength);
}

void Canvas::haloBetween(Point centre, double side, double up, double down, Rgb colour, float strength) {
    const double k = place_.magnification();
    layer().halo(place_.apply(centre), k * side, k * up, k * down, colour, strength);
}

void Canvas::shadeRows(double y0, double y1, float above, float below, const Mask* clip) {
    layer().shadeRows(place_.apply({0, y0}).y, place_.apply({0, y1}).y, above, below, clip);
}

void Canvas::dimAround(Point centre, double radius, float dark) {
    layer().dimAround(place_.apply(centre), radius * place_.magnification(), dark);
}

void Canvas::border(double width, const Material& material) {
    Layer inner = std::move(layer());
    layer() = Layer(inner.box());
    Mask grown = inner.shape();
    if (grown.box.empty()) return;
    const auto reach = static_cast<float>(lineSamples(width)) + 0.5F;
    // Room for the rim, its line and the shadow on it.
    const double magnification = place_.magnification();
    grown = widened(grown, static_cast<int>(reach + lineSamples(kBorderLine) + 6 * magnification) + 2, inner.box());
    const Mask shape = grown;
    const FloatPlane outside = distanceField(shape.coverage, DistanceFrom::Outside, reach);
    for (int y = 0; y < grown.box.height(); ++y) {
        for (int x = 0; x < grown.box.width(); ++x) grown.coverage.at(x, y) = clamp01(reach - outside.at(x, y));
    }
    layer().drawLine(grown, lineSamples(kBorderLine), material.ink, 1);
    layer().drawSurface(grown, material, width * magnification, magnification, margin_ * sampling_, 1);
    castShadow(layer(), shape, kBorderShade);
    layer().layOver(inner, 1, nullptr);
}

// ---- pixels

PixelImage Canvas::picture() const {
    PixelImage image(width_, height_);
    const int first = margin_ * sampling_;
    const float share = 1.0F / static_cast<float>(sampling_ * sampling_);
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            Layer::Sample sum;
            for (int i = 0; i < sampling_ * sampling_; ++i) {
                const Layer::Sample& s =
                    layer().at(first + x * sampling_ + i % sampling_, first + y * sampling_ + i / sampling_);
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
