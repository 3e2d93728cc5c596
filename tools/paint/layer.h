#pragma once

#include <cstddef>
#include <vector>

#include "mask.h"
#include "material.h"
#include "pixel_image.h"
#include "vector_path.h"

namespace grub {

/// Colour mixed into all of a layer: 1 leaves a silhouette of that colour.
struct Tint {
    Rgb colour;
    float share = 0;
};

/// Painted samples inside a box. It works in samples and knows neither coordinates nor pixels; Canvas adds them.
class Layer {
public:
    /// Empty: every sample is clear.
    explicit Layer(const Box& box);

    const Box& box() const { return box_; }
    /// Where something has been painted; nothing outside is visible.
    const Box& touched() const { return touched_; }

    /// Its colour is already multiplied by alpha.
    struct Sample {
        Rgb colour;
        float alpha = 0;
    };
    /// A sample inside the box.
    const Sample& at(int x, int y) const { return samples_[indexOf(x, y)]; }

    // ---- strokes: masks lie inside the box

    /// One colour, without light.
    void fill(const Mask& mask, Rgb colour, float alpha);
    /// Darkens what lies beside the shape: its shadow, blurred by `blur` samples and moved.
    void castShadow(const Mask& mask, double blur, int dx, int dy, float strength);
    /// A line of `width` samples around the shape, and the shape itself, in ink.
    void drawLine(const Mask& mask, double width, Rgb ink, float alpha);
    /// Lit heights; see Canvas::part. `bevel` in samples, `magnification` samples a design pixel. Grain and roughness
    /// are counted from the sample `origin` to the right and down.
    void drawSurface(const Mask& shape, const Material& material, double bevel, double magnification, int origin,
                     float alpha);

    /// Lays a finished picture with its corner at sample (x, y), a square of `side` samples a pixel.
    void stamp(const PixelImage& picture, int x, int y, int side);

    // ---- light

    /// Added light around `centre`, inside `radius` samples.
    void glow(Point centre, double radius, Rgb colour, float strength);
    /// A disc of light that reaches `side` samples to both sides, `up` and `down`.
    void halo(Point centre, double side, double up, double down, Rgb colour, float strength);
    /// Multiplies brightness: 1 at `centre`, down to `dark` from `radius` samples on.
    void dimAround(Point centre, double radius, float dark);
    /// Multiplies brightness by `above` down to row `y0`, by `below` from row `y1` on, and evenly between.
    void shadeRows(double y0, double y1, float above, float below, const Mask* clip);

    // ---- the whole

    /// What is painted, as a mask of the touched box.
    Mask shape() const;
    /// A line of `width` samples around the shape, under it.
    void outline(double width, Rgb ink);
    /// Mixes a colour into all that is painted.
    void tint(const Tint& tint);
    /// Softens all that is painted by `sigma` samples. It grows by three times as much, inside the box.
    void blur(double sigma);
    /// Lays the other over this one: `cover` is how solid it is, 0 to 1; `clip` is where it shows, or null.
    void layOver(const Layer& other, float cover, const Mask* clip);

private:
    std::size_t indexOf(int x, int y) const {
        return static_cast<std::size_t>(y - box_.y0) * static_cast<std::size_t>(box_.width()) +
               static_cast<std::size_t>(x - box_.x0);
    }
    Sample& sample(int x, int y) { return samples_[indexOf(x, y)]; }
    void lay(int x, int y, Rgb colour, float alpha);
    void touch(const Box& box);

    Box box_;
    Box touched_;
    std::vector<Sample> samples_;
};

}  // namespace grub
