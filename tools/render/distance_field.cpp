#include "distance_field.h"

#include <cmath>
#include <vector>

namespace grub {

namespace {

/// Larger than any squared distance of a picture, and small enough that sums stay exact integers in a float.
constexpr float kFar = 4.0e6F;

/// Lower envelope of the parabolas (x - i)^2 + in[i]: the squared distance transform of one line.
class LineTransform {
public:
    explicit LineTransform(int longest)
        : in_(static_cast<std::size_t>(longest)),
          roots_(static_cast<std::size_t>(longest)),
          from_(static_cast<std::size_t>(longest) + 1) {}

    float* line() { return in_.data(); }

    /// Transforms the first `count` numbers of line() and gives them to `store` one after another.
    template <class Store>
    void run(int count, Store store) {
        buildEnvelope(count);
        std::size_t k = 0;
        for (int x = 0; x < count; ++x) {
            while (from_[k + 1] < static_cast<float>(x)) ++k;
            const int i = roots_[k];
            store(x, static_cast<float>((x - i) * (x - i)) + in_[static_cast<std::size_t>(i)]);
        }
    }

private:
    float crossing(int a, int b) const {
        const float fa = in_[static_cast<std::size_t>(a)] + static_cast<float>(a * a);
        const float fb = in_[static_cast<std::size_t>(b)] + static_cast<float>(b * b);
        return (fb - fa) / static_cast<float>(2 * (b - a));
    }

    void buildEnvelope(int count) {
        std::size_t k = 0;
        roots_[0] = 0;
        from_[0] = -kFar;
        for (int i = 1; i < count; ++i) {
            float s = crossing(roots_[k], i);
            while (k > 0 && s <= from_[k]) s = crossing(roots_[--k], i);
            roots_[++k] = i;
            from_[k] = s;
        }
        from_[k + 1] = kFar;
    }

    std::vector<float> in_;
    std::vector<int> roots_;
    std::vector<float> from_;
};

}  // namespace

FloatPlane distanceField(const FloatPlane& coverage, DistanceFrom from) {
    const int width = coverage.width();
    const int height = coverage.height();
    FloatPlane field(width, height);
    LineTransform transform(std::max(width, height));
    float* line = transform.line();
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y) {
            const bool covered = coverage.at(x, y) > 0.5F;
            line[y] = covered == (from == DistanceFrom::Inside) ? kFar : 0.0F;
        }
        transform.run(height, [&](int y, float squared) { field.at(x, y) = std::min(squared, kFar); });
    }
    for (int y = 0; y < height; ++y) {
        float* row = field.row(y);
        std::copy(row, row + width, line);
        transform.run(width, [&](int x, float squared) { row[x] = std::sqrt(squared); });
    }
    return field;
}

}  // namespace grub
