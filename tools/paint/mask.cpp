#include "mask.h"

#include <cairo.h>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

namespace grub {

Box boxAround(std::initializer_list<Point> points) {
    constexpr int kLarge = 1 << 20;
    Box box{kLarge, kLarge, -kLarge, -kLarge};
    for (const Point p : points) {
        box.x0 = std::min(box.x0, static_cast<int>(std::floor(p.x)));
        box.y0 = std::min(box.y0, static_cast<int>(std::floor(p.y)));
        box.x1 = std::max(box.x1, static_cast<int>(std::ceil(p.x)));
        box.y1 = std::max(box.y1, static_cast<int>(std::ceil(p.y)));
    }
    return box;
}

// ---- shapes to masks, by Cairo

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
    return boxAround({place.apply({x0 - half, y0 - half}), place.apply({x1 + half, y0 - half}),
                      place.apply({x0 - half, y1 + half}), place.apply({x1 + half, y1 + half})});
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

namespace {

/// Copies what both boxes hold.
Mask inBox(const Mask& mask, const Box& box) {
    Mask result{box, FloatPlane(box.width(), box.height())};
    const Box both = box.within(mask.box);
    for (int y = both.y0; y < both.y1; ++y) {
        const float* row = mask.coverage.row(y - mask.box.y0) + (both.x0 - mask.box.x0);
        std::copy(row, row + both.width(), result.coverage.row(y - box.y0) + (both.x0 - box.x0));
    }
    return result;
}

}  // namespace

Mask trimmed(const Mask& mask) {
    Box covered{mask.box.x1, mask.box.y1, mask.box.x0, mask.box.y0};
    for (int y = mask.box.y0; y < mask.box.y1; ++y) {
        for (int x = mask.box.x0; x < mask.box.x1; ++x) {
            if (mask.coverage.at(x - mask.box.x0, y - mask.box.y0) > 0) covered = covered.around({x, y, x + 1, y + 1});
        }
    }
    return covered.empty() ? Mask{} : inBox(mask, covered.grown(1).within(mask.box));
}

Mask widened(const Mask& mask, int by, const Box& limits) { return inBox(mask, mask.box.grown(by).within(limits)); }

// ---- distances to the edge

namespace {

/// Larger than any squared distance of a picture, and small enough that sums stay exact integers in a float.
constexpr float kFar = kAnyDistance * kAnyDistance;

/// Lower envelope of the parabolas (x - i)^2 + height[i]: squared distances along a line, from those across it.
/// Parabolas of height kFar or more lie above every distance that counts and are left out.
class Envelope {
public:
    explicit Envelope(int longest)
        : roots_(static_cast<std::size_t>(longest)),
          heights_(static_cast<std::size_t>(longest)),
          from_(static_cast<std::size_t>(longest) + 1) {}

    /// Takes heights[first, last) and gives `store` each place, its squared distance and the place that it is measured
    /// from. Returns false, without a call, when no parabola counts.
    template <class Store>
    bool run(const float* heights, int first, int last, Store store) {
        std::size_t count = 0;
        for (int i = first; i < last; ++i) {
            if (heights[i] < kFar) count = add(i, heights[i], count);
        }
        from_[count] = kFar;
        std::size_t k = 0;
        for (int x = first; count > 0 && x < last; ++x) {
            while (from_[k + 1] < static_cast<float>(x)) ++k;
            const int away = x - roots_[k];
            store(x, static_cast<float>(away * away) + heights_[k], roots_[k]);
        }
        return count > 0;
    }

private:
    /// Adds a parabola to the right of the `count` that are there; returns how many are left.
    std::size_t add(int root, float height, std::size_t count) {
        float from = -kFar;
        while (count > 0) {
            from = crossing(count - 1, root, height);
            if (count == 1 || from > from_[count - 1]) break;
            --count;
        }
        roots_[count] = root;
        heights_[count] = height;
        from_[count] = count == 0 ? -kFar : from;
        return count + 1;
    }

    /// Where the parabola at `root` begins to lie below the one numbered `k`.
    float crossing(std::size_t k, int root, float height) const {
        const int other = roots_[k];
        const float fa = heights_[k] + static_cast<float>(other * other);
        const float fb = height + static_cast<float>(root * root);
        return (fb - fa) / static_cast<float>(2 * (root - other));
    }

    std::vector<int> roots_;
    std::vector<float> heights_;
    std::vector<float> from_;
};

/// The distance of every sample from the edge of the shape.
class DistanceField {
public:
    DistanceField(const FloatPlane& coverage, DistanceFrom from, float limit)
        : coverage_(coverage), inside_(from == DistanceFrom::Inside), limit_(limit) {}

    FloatPlane run() {
        measureColumns();
        FloatPlane field(coverage_.width(), coverage_.height());
        Envelope envelope(field.width());
        std::vector<float> squared(static_cast<std::size_t>(field.width()));
        for (int y = 0; y < field.height(); ++y) {
            const float* rows = rows_.row(y);
            std::transform(rows, rows + field.width(), squared.begin(),
                           [this](float away) { return std::abs(away) > limit_ ? kFar : away * away; });
            measureRow(y, squared.data(), envelope, field.row(y));
        }
        return field;
    }

private:
    bool isMeasured(float covered) const { return (covered > 0.5F) == inside_; }

    /// How many rows below (negative: above) the nearest sample of the other kind in the same column lies; 0 for
    /// samples of that kind.
    void measureColumns() {
        rows_ = FloatPlane(coverage_.width(), coverage_.height());
        for (int y = 0; y < coverage_.height(); ++y) {
            const float* above = y > 0 ? rows_.row(y - 1) : nullptr;
            for (int x = 0; x < coverage_.width(); ++x) {
                const float further = above == nullptr ? -kAnyDistance : std::max(above[x] - 1, -kAnyDistance);
                rows_.at(x, y) = isMeasured(coverage_.at(x, y)) ? further : 0;
            }
        }
        for (int y = coverage_.height() - 2; y >= 0; --y) {
            const float* below = rows_.row(y + 1);
            float* row = rows_.row(y);
            for (int x = 0; x < coverage_.width(); ++x) {
                if (below[x] >= 0 && below[x] + 1 < -row[x]) row[x] = below[x] + 1;
            }
        }
    }

    /// Between two samples of the other kind only what lies there counts.
    void measureRow(int y, const float* squared, Envelope& envelope, float* row) const {
        const int width = coverage_.width();
        for (int x = 0; x < width;) {
            if (squared[x] <= 0) {
                ++x;
                continue;
            }
            int end = x;
            while (end < width && squared[end] > 0) ++end;
            const auto store = [&](int at, float distance, int from) {
                if (at >= x && at < end) row[at] = std::sqrt(distance) + share(from, y);
            };
            if (!envelope.run(squared, std::max(x - 1, 0), std::min(end + 1, width), store))
                std::fill(row + x, row + end, kAnyDistance);
            x = end;
        }
    }

    /// How much of the sample that the distance is measured from belongs to this side of the edge: the edge lies so
    /// much further away. Without it, steps of the edge would show as streaks in the light of large shapes.
    float share(int column, int y) const {
        const float covered = coverage_.at(column, y + static_cast<int>(rows_.at(column, y)));
        return inside_ ? covered : 1 - covered;
    }

    const FloatPlane& coverage_;
    bool inside_;
    float limit_;
    FloatPlane rows_;
};

}  // namespace

FloatPlane distanceField(const FloatPlane& coverage, DistanceFrom from, float limit) {
    return DistanceField(coverage, from, limit).run();
}

// ---- blur

namespace {

/// Radii of three boxes whose variances add up to that of the Gaussian, as nearly as odd widths allow.
std::array<int, 3> boxRadii(double sigma) {
    const double wanted = 12 * sigma * sigma;
    int narrow = static_cast<int>(std::sqrt(wanted / 3 + 1));
    if (narrow % 2 == 0) --narrow;
    const double n = narrow;
    const auto narrowBoxes = std::lround((wanted - 3 * n * n - 12 * n - 9) / (-4 * n - 4));
    std::array<int, 3> radii{};
    for (int i = 0; i < 3; ++i) radii[static_cast<std::size_t>(i)] = (i < narrowBoxes ? narrow - 1 : narrow + 1) / 2;
    return radii;
}

void boxRows(FloatPlane& plane, int radius) {
    const int width = plane.width();
    const float weight = 1.0F / static_cast<float>(2 * radius + 1);
    const std::size_t reach = 2 * static_cast<std::size_t>(radius);
    std::vector<float> line(static_cast<std::size_t>(width) + reach);
    for (int y = 0; y < plane.height(); ++y) {
        float* row = plane.row(y);
        std::copy(row, row + width, line.begin() + radius);
        float sum = 0;
        for (std::size_t i = 0; i < reach; ++i) sum += line[i];
        for (int x = 0; x < width; ++x) {
            sum += line[static_cast<std::size_t>(x) + reach];
            row[x] = sum * weight;
            sum -= line[static_cast<std::size_t>(x)];
        }
    }
}

/// Works on whole rows at a time, so that memory is walked in order.
void boxColumns(FloatPlane& plane, int radius) {
    const int width = plane.width();
    const int height = plane.height();
    const float weight = 1.0F / static_cast<float>(2 * radius + 1);
    const FloatPlane source = plane;
    std::vector<float> sum(static_cast<std::size_t>(width));
    const auto add = [&](int y, float sign) {
        if (y < 0 || y >= height) return;
        const float* row = source.row(y);
        for (int x = 0; x < width; ++x) sum[static_cast<std::size_t>(x)] += sign * row[x];
    };
    for (int y = 0; y < radius; ++y) add(y, 1);
    for (int y = 0; y < height; ++y) {
        add(y + radius, 1);
        float* row = plane.row(y);
        for (int x = 0; x < width; ++x) row[x] = sum[static_cast<std::size_t>(x)] * weight;
        add(y - radius, -1);
    }
}

}  // namespace

FloatPlane blurred(FloatPlane plane, double sigma) {
    if (sigma < 0.5) return plane;
    for (const int radius : boxRadii(sigma)) {
        if (radius == 0) continue;
        boxRows(plane, radius);
        boxColumns(plane, radius);
    }
    return plane;
}

}  // namespace grub
