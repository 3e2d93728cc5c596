#pragma once

#include <optional>
#include <vector>

#include "mask.h"
#include "material.h"
#include "pixel_image.h"

namespace grub {

/// How a part is drawn. Lengths in design pixels.
struct PartStyle {
    /// Width of the rounded edge; half the part's thickness makes it a full round.
    double bevel = 6;
    /// Width of the line round it.
    double line = 1.0;
    /// Strength of the shadow that it casts on the parts below.
    float shadow = 0.38F;
    /// Stroke width; without it the path is filled.
    std::optional<double> stroke = std::nullopt;
    /// The part shows only here.
    const Mask* clip = nullptr;
    float alpha = 1;
};

/// How a flat area is drawn.
struct FlatStyle {
    float alpha = 1;
    std::optional<double> stroke = std::nullopt;
    const Mask* clip = nullptr;
};

/// A picture in the making: parts are laid on one another from the back to the front, on a grid of samples that is
/// averaged down to pixels in the end. One thread at a time; the same calls give the same bytes.
class Canvas {
public:
    /// `width` and `height` in pixels; `samples` a side of a pixel; `scale` pixels a design pixel; `margin` design
    /// pixels around the picture that are drawn on and cut off, so that a drawing goes on into the neighbouring cell.
    Canvas(int width, int height, int samples = 4, double scale = 1, int margin = 0);

    /// Width and height of the picture in design pixels.
    Point size() const { return {width_ / scale_, height_ / scale_}; }

    /// While it lives, drawing uses moved, turned and stretched coordinates. Of several, the last one made ends first.
    class Placement {
    public:
        Placement(Canvas& canvas, const Affine& inner) : canvas_(canvas), outer_(canvas.place_) {
            canvas.place_ = inner;
        }
        ~Placement() { canvas_.place_ = outer_; }
        Placement(const Placement&) = delete;
        Placement& operator=(const Placement&) = delete;

    private:
        Canvas& canvas_;
        Affine outer_;
    };
    /// Origin of the new coordinates, their turn in radians and their stretch.
    [[nodiscard]] Placement placed(Point origin, double angle = 0, double sx = 1, double sy = 1) {
        return {*this, place_.translated(origin).rotated(angle).scaled(sx, sy)};
    }
    /// Turns everything drawn while it lives about `pivot`, and moves it.
    [[nodiscard]] Placement bent(Point pivot, double angle, Point shift = {}) {
        return {*this, place_.translated(pivot + shift).rotated(angle).translated(pivot * -1)};
    }

    /// An empty canvas of the same size with the same coordinates, for what is to be laid over this one in part.
    Canvas blankCopy() const {
        Canvas blank(width_, height_, sampling_, scale_, margin_);
        blank.place_ = place_;
        return blank;
    }
    /// Lays what another canvas of the same size shows inside `where` over this one.
    void layOver(const Canvas& other, const Mask& where);
    /// Lays all of the other over this one; `cover` is how solid it is, 0 to 1.
    void layOver(const Canvas& other, float cover = 1);

    /// Where the shape lies, for clipping.
    Mask mask(const VectorPath& path, std::optional<double> stroke = std::nullopt) const;

    /// A solid part: contact shadow on what lies below, line, inflated and lit surface.
    void part(const VectorPath& path, const Material& material, const PartStyle& style = {});
    /// An area of one colour without line or shadow.
    void flat(const VectorPath& path, Rgb colour, const FlatStyle& style = {});
    /// Light that is added to what is there already, fading with the square of the distance.
    void glow(Point centre, double radius, Rgb colour, float strength);
    /// Light as a translucent disc of its own, for pictures that lie over others.
    void halo(Point centre, double radius, Rgb colour, float strength);
    /// A halo that reaches `side` pixels to both sides, `up` and `down`.
    void haloBetween(Point centre, double side, double up, double down, Rgb colour, float strength);
    /// Multiplies brightness: `above` down to row `y0`, `below` from row `y1` on, evenly between.
    void shadeRows(double y0, double y1, float above, float below, const Mask* clip = nullptr);
    /// A line of `width` around all that has been drawn, under it.
    void outline(double width, Rgb ink = kInk);
    /// A raised rim of `width` with a line of its own around all that has been drawn, under it.
    void border(double width, const Material& material);
    /// Where something has been drawn, and how much it covers.
    Mask drawn() const;

    /// The picture so far, averaged over the samples of each pixel, margin cut off.
    PixelImage picture() const;

private:
    struct Sample {
        Rgb colour;  // already multiplied by alpha
        float alpha = 0;
    };

    std::size_t indexOf(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(box_.x1) + static_cast<std::size_t>(x);
    }
    Sample& sample(int x, int y) { return samples_[indexOf(x, y)]; }
    const Sample& sample(int x, int y) const { return samples_[indexOf(x, y)]; }
    void lay(int x, int y, Rgb colour, float alpha);
    double lineSamples(double width) const;

    void castShadow(const Mask& mask, double magnification, float strength);
    void drawLine(const Mask& mask, double width, Rgb ink, float alpha);
    void drawSurface(const Mask& mask, const Material& material, double bevel, double magnification, float alpha);

    int width_;
    int height_;
    int sampling_;
    double scale_;
    int margin_;
    Box box_;
    Affine place_;
    std::vector<Sample> samples_;
};

}  // namespace grub
