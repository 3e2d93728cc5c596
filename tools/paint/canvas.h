#pragma once

#include <optional>
#include <vector>

#include "layer.h"
#include "mask.h"
#include "material.h"
#include "pixel_image.h"

namespace grub {

/// How a part is drawn. Lengths in design pixels.
struct PartStyle {
    /// Width of the rounded edge; half the part's thickness makes it a full round.
    double bevel = 6;
    /// Width of the line round it, at magnification 1: lines grow with the power 0.75 of the whole magnification.
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

/// What a group does beside its strokes. Lengths in design pixels.
struct GroupStyle {
    /// Nothing of the group shows outside; without it, all of the layer below. A small box saves time and memory.
    std::optional<Rect> box = std::nullopt;
    /// Left and right are exchanged about the middle of the box, which must be given, so that a figure drawn facing
    /// right faces left.
    bool mirrored = false;
    /// Width of the line around all of the group, under it, as in PartStyle; 0 for none.
    double outline = 0;
    Rgb ink = kInk;
    /// Colour mixed into all of the group.
    Tint tint = {};
    /// How soft the whole group is: sigma of a Gaussian; 0 for sharp. Light and shadows on a wall have no sharp edges.
    double blur = 0;
    /// Strength of the shadow that the whole group casts on what lies below.
    float shadow = 0;
    /// How solid the group is, 0 to 1.
    float cover = 1;
    /// The group shows only here.
    const Mask* clip = nullptr;
};

/// A picture in the making: parts are laid on one another from the back to the front, on a grid of samples that is
/// averaged down to pixels in the end. One thread at a time; the same calls give the same bytes.
class Canvas {
public:
    /// `width` and `height` in pixels; `samples` a side of a pixel; `margin` pixels around the picture that are drawn
    /// on and cut off, so that a drawing goes on into the neighbouring cell. At first a design pixel is a pixel.
    Canvas(int width, int height, int samples = 4, int margin = 0);

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

    /// While it lives, strokes gather on a layer of their own; at its end the layer is laid over what was there before.
    /// What works on all that has been drawn (light, rows, borders) works on the group alone.
    class Group {
    public:
        Group(Canvas& canvas, const GroupStyle& style);
        ~Group();
        Group(const Group&) = delete;
        Group& operator=(const Group&) = delete;

    private:
        Canvas& canvas_;
        GroupStyle style_;
        Affine outer_;
    };
    [[nodiscard]] Group group(const GroupStyle& style = {}) { return {*this, style}; }

    /// Where the shape lies, for clipping.
    Mask mask(const VectorPath& path, std::optional<double> stroke = std::nullopt) const;
    /// Where the group, or the canvas outside of groups, has been drawn on, and how much is covered.
    Mask drawn() const { return layer().shape(); }

    /// A solid part: contact shadow on what lies below, line, inflated and lit surface.
    void part(const VectorPath& path, const Material& material, const PartStyle& style = {});
    /// An area of one colour without line or shadow.
    void flat(const VectorPath& path, Rgb colour, const FlatStyle& style = {});
    /// A finished picture, pixel for pixel, its upper left corner at the whole pixel nearest to `at`.
    void stamp(const PixelImage& picture, Point at);
    /// Light that is added to what is there already, fading with the square of the distance.
    void glow(Point centre, double radius, Rgb colour, float strength);
    /// Light as a translucent disc of its own, for pictures that lie over others.
    void halo(Point centre, double radius, Rgb colour, float strength);
    /// A halo that reaches `side` pixels to both sides, `up` and `down`.
    void haloBetween(Point centre, double side, double up, double down, Rgb colour, float strength);
    /// Multiplies brightness: `above` down to row `y0`, `below` from row `y1` on, evenly between.
    void shadeRows(double y0, double y1, float above, float below, const Mask* clip = nullptr);
    /// Darkness around a light: brightness is untouched at `centre` and falls to the share `dark` at `radius`.
    void dimAround(Point centre, double radius, float dark);
    /// A raised rim of `width` with a line of its own around all that has been drawn, under it.
    void border(double width, const Material& material);

    /// The picture so far, averaged over the samples of each pixel, margin cut off. No group may be open.
    PixelImage picture() const;

private:
    Layer& layer() { return layers_.back(); }
    const Layer& layer() const { return layers_.back(); }
    double lineSamples(double width) const;
    Box boxOf(const Rect& rect) const;
    void castShadow(Layer& on, const Mask& mask, float strength) const;

    int width_;
    int height_;
    int sampling_;
    int margin_;
    Affine place_;
    std::vector<Layer> layers_;
};

}  // namespace grub
