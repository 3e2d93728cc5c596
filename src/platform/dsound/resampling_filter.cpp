#include "dsound/resampling_filter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <numeric>

namespace platform {
namespace {

// A window of this shape keeps frequencies that must not pass below -96 dB. The taps and the cutoff, relative to the
// lower of both rates, decide the width of the filter's edge: flat to 0.39 of that rate, silent from 0.53 on.
constexpr std::size_t kTaps = 48;
constexpr double kWindowShape = 9.6;
constexpr double kCutoff = 0.46;
// Two rates without a common divisor would need a row for each of thousands of places; their places are rounded to
// rows.
constexpr FramePart kMostRows = 4096;

double sinc(double x) { return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x); }

/// The modified Bessel function of order 0, by its series. The library's own is not safe with threads.
double besselI0(double x) {
    double sum = 1;
    double term = 1;
    for (int k = 1; term > 1e-12 * sum; ++k) {
        term *= x * x / (4.0 * k * k);
        sum += term;
    }
    return sum;
}

/// Kaiser's window; `x` from -1 to 1.
double window(double x) {
    if (std::abs(x) >= 1) return 0;
    return besselI0(kWindowShape * std::sqrt(1 - x * x)) / besselI0(kWindowShape);
}

/// Eight sums side by side: the compiler may use wide registers, and the result is the same with and without them.
float dotProduct(const float* a, const float* b, std::size_t count) {
    std::array<float, 8> sums{};
    for (std::size_t i = 0; i < count; i += sums.size()) {
        for (std::size_t k = 0; k < sums.size(); ++k) sums[k] += a[i + k] * b[i + k];
    }
    return ((sums[0] + sums[4]) + (sums[1] + sums[5])) + ((sums[2] + sums[6]) + (sums[3] + sums[7]));
}

}  // namespace

ResamplingFilter::ResamplingFilter(DWORD from, DWORD to)
    : parts_(to / std::gcd(from, to)),
      step_(from / std::gcd(from, to)),
      taps_(kTaps * std::max<std::size_t>(1, (from + to - 1) / to)),
      rows_(static_cast<std::size_t>(std::min(parts_, kMostRows))),
      cutoff_(kCutoff * std::min(1.0, static_cast<double>(to) / from)),
      coefficients_(rows_ * taps_) {
    for (std::size_t row = 0; row < rows_; ++row) makeRow(row);
}

void ResamplingFilter::makeRow(std::size_t row) {
    const auto coefficients = std::span(coefficients_).subspan(row * taps_, taps_);
    const double half = static_cast<double>(taps_) / 2;
    const double centre = half - 1 + static_cast<double>(row) / static_cast<double>(rows_);
    double sum = 0;
    for (std::size_t i = 0; i < taps_; ++i) {
        const double distance = static_cast<double>(i) - centre;
        const double value = sinc(2 * cutoff_ * distance) * window(distance / half);
        coefficients[i] = static_cast<float>(value);
        sum += value;
    }
    for (float& value : coefficients) value = static_cast<float>(value / sum);  // a constant stays what it is
}

void ResamplingFilter::apply(std::span<const float> frames, FramePart part, std::span<float> result) const {
    std::size_t frame = 0;
    for (float& sample : result) {
        const std::size_t row = rows_ == parts_ ? part : part * rows_ / parts_;
        sample = dotProduct(&frames[frame], &coefficients_[row * taps_], taps_);
        part += step_;
        frame += part / parts_;
        part %= parts_;
    }
}

}  // namespace platform
