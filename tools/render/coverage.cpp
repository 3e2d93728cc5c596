#include "coverage.h"

#include <cairo.h>

#include <memory>

namespace grub {

namespace {

struct CairoDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using Context = std::unique_ptr<cairo_t, CairoDeleter>;

void trace(cairo_t* context, const VectorPath& path) {
    for (const auto& [verb, p] : path.segments()) {
        switch (verb) {
            case VectorPath::Verb::Move: cairo_move_to(context, p[0].x, p[0].y); break;
            case VectorPath::Verb::Line: cairo_line_to(context, p[0].x, p[0].y); break;
            case VectorPath::Verb::Curve:
                cairo_curve_to(context, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y);
                break;
            case VectorPath::Verb::Close: cairo_close_path(context); break;
        }
    }
}

/// A context over `surface` with the path in it, ready to be filled or stroked. `origin` is the sample at its corner.
Context contextWith(cairo_surface_t* surface, const VectorPath& path, const Affine& place,
                    std::optional<double> strokeWidth, int originX, int originY) {
    Context context(cairo_create(surface));
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, place.xx, place.yx, place.xy, place.yy, place.x0 - originX, place.y0 - originY);
    cairo_set_matrix(context.get(), &matrix);
    cairo_set_line_width(context.get(), strokeWidth.value_or(1));
    cairo_set_line_cap(context.get(), CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context.get(), CAIRO_LINE_JOIN_ROUND);
    trace(context.get(), path);
    return context;
}

/// What the path touches, in whole samples.
Box touchedBox(const VectorPath& path, const Affine& place, std::optional<double> strokeWidth) {
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1));
    const Context context = contextWith(surface.get(), path, place, strokeWidth, 0, 0);
    double x0 = 0;
    double y0 = 0;
    double x1 = 0;
    double y1 = 0;
    cairo_path_extents(context.get(), &x0, &y0, &x1, &y1);
    const double half = strokeWidth.value_or(0) / 2;
    Box box{1 << 20, 1 << 20, -(1 << 20), -(1 << 20)};
    for (const Point corner : {Point{x0 - half, y0 - half}, Point{x1 + half, y0 - half}, Point{x0 - half, y1 + half},
                               Point{x1 + half, y1 + half}}) {
        const Point p = place.apply(corner);
        box.x0 = std::min(box.x0, static_cast<int>(std::floor(p.x)));
        box.y0 = std::min(box.y0, static_cast<int>(std::floor(p.y)));
        box.x1 = std::max(box.x1, static_cast<int>(std::ceil(p.x)));
        box.y1 = std::max(box.y1, static_cast<int>(std::ceil(p.y)));
    }
    return box;
}

FloatPlane planeOf(cairo_surface_t* surface, int width, int height) {
    FloatPlane plane(width, height);
    cairo_surface_flush(surface);
    const unsigned char* bytes = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    for (int y = 0; y < height; ++y) {
        const unsigned char* from = bytes + static_cast<std::ptrdiff_t>(y) * stride;
        std::transform(from, from + width, plane.row(y),
                       [](unsigned char v) { return static_cast<float>(v) / 255.0F; });
    }
    return plane;
}

}  // namespace

Mask rasterise(const VectorPath& path, const Affine& place, std::optional<double> strokeWidth, int margin,
               const Box& limits) {
    const Box box = touchedBox(path, place, strokeWidth).grown(margin).within(limits);
    if (box.empty()) return {};
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, box.width(), box.height()));
    const Context context = contextWith(surface.get(), path, place, strokeWidth, box.x0, box.y0);
    strokeWidth ? cairo_stroke(context.get()) : cairo_fill(context.get());
    return {box, planeOf(surface.get(), box.width(), box.height())};
}

}  // namespace grub
