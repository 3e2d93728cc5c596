#pragma once

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>
#include <span>
#include <vector>

namespace grub {

/// `count` samples of a sine, `amplitude` of full scale, starting at phase 0.
[[nodiscard]] inline std::vector<float> sine(std::size_t count, double hertz, double rate, float amplitude = 0.5F) {
    std::vector<float> samples(count);
    for (std::size_t i = 0; i < count; ++i) {
        samples[i] =
            amplitude * static_cast<float>(std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / rate));
    }
    return samples;
}

/// The same in 16 bits.
[[nodiscard]] inline std::vector<std::int16_t> tone(double hertz, double rate, std::size_t count,
                                                    float amplitude = 0.5F) {
    std::vector<std::int16_t> samples;
    for (const float sample : sine(count, hertz, rate, amplitude))
        samples.push_back(static_cast<std::int16_t>(std::lround(0x8000 * sample)));
    return samples;
}

/// A sine found in a sound: amplitude (1 is full), phase of sample 0 in cycles, and what is left without it, in
/// decibels below it.
struct FoundTone {
    double amplitude;
    double phase;
    double residual;
};

/// Fits a sine of this frequency to `samples`; they should hold whole periods.
template <class Samples>
FoundTone findTone(const Samples& samples, double hertz, double rate) {
    std::complex<double> sum;
    double all = 0;
    double angle = 0;
    for (const double value : samples) {
        sum += value * std::polar(1.0, angle);
        all += value * value;
        angle += 2 * std::numbers::pi * hertz / rate;
    }
    const auto count = static_cast<double>(samples.size());
    const double amplitude = 2 * std::abs(sum) / count;
    const double power = amplitude * amplitude / 2;
    const double rest = std::max(all / count - power, 1e-30);
    return {amplitude, std::atan2(sum.real(), sum.imag()) / (2 * std::numbers::pi), 10 * std::log10(rest / power)};
}

/// One side of interleaved samples from frame `first` on, as numbers from -1 to 1.
inline std::vector<double> sideOf(std::span<const std::int16_t> stereo, std::size_t side, std::size_t first,
                                  std::size_t count) {
    std::vector<double> samples;
    for (std::size_t i = first; i < first + count; ++i) samples.push_back(stereo[2 * i + side] / 32768.0);
    return samples;
}

}  // namespace grub
