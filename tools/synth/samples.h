#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <span>
#include <vector>

namespace grub {

/// One channel of sound; full scale is -1 to 1, and may be left before a sound is mastered.
using Samples = std::vector<double>;

/// What music and most effects are rendered at, samples per second.
inline constexpr int kMusicRate = 44100;

/// A whole turn of a phase, in radians.
inline constexpr double kTwoPi = 2 * std::numbers::pi;

/// An amplitude of so many decibels; 0 dB is 1.
inline double fromDecibels(double decibels) { return std::pow(10, decibels / 20); }

/// Decibels of an amplitude; silence gives a large negative number.
inline double toDecibels(double amplitude) { return 20 * std::log10(std::max(amplitude, 1e-12)); }

/// Adds `sound` from sample `start` on; what would stand behind the end of `mix` is lost.
inline void addSamples(std::span<double> mix, std::size_t start, std::span<const double> sound, double gain) {
    for (std::size_t i = 0; i < sound.size() && start + i < mix.size(); ++i) mix[start + i] += gain * sound[i];
}

/// The largest amplitude.
inline double peakOf(std::span<const double> sound) {
    double peak = 0;
    for (const double sample : sound) peak = std::max(peak, std::abs(sample));
    return peak;
}

/// Random numbers made of integers alone: the same seed gives the same sequence on every machine.
class WhiteNoise {
public:
    /// Seeds that lie side by side give sequences that have nothing in common.
    explicit WhiteNoise(std::uint32_t seed) : state_(seed * 0x9e3779b97f4a7c15ULL + 0x632be59bd9b4e019ULL) {}

    /// Evenly spread from 0 up to, not including, 1.
    double share() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return static_cast<double>(state_ >> 11) / 9007199254740992.0;
    }
    /// Evenly spread from -1 to 1.
    double sample() { return 2 * share() - 1; }

private:
    std::uint64_t state_;
};

}  // namespace grub
