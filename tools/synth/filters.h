#pragma once

#include <cstdint>

#include "samples.h"

namespace grub {

/// A second-order filter that stays stable while its corner moves: low, band and high pass of the same corner at once.
class StateFilter {
public:
    /// Corner in Hz (limited to below half the rate); `q` 0.71 is the flattest, more rings at the corner.
    StateFilter(double corner, double q, int rate) : q_(q), rate_(rate) { tune(corner); }

    /// Moves the corner; what sounds goes on without a step.
    void tune(double corner) {
        g_ = std::tan(std::numbers::pi * std::min(corner, 0.45 * rate_) / rate_);
        a1_ = 1 / (1 + g_ * (g_ + 1 / q_));
    }

    /// Takes the next sample in; the outputs below then belong to it.
    void push(double in) {
        const double band = a1_ * (state1_ + g_ * (in - state2_));
        const double low = state2_ + g_ * band;
        state1_ = 2 * band - state1_;
        state2_ = 2 * low - state2_;
        band_ = band;
        low_ = low;
        high_ = in - band / q_ - low;
    }

    /// Outputs for the last sample; the band pass has gain 1 at the corner.
    double low() const { return low_; }
    double band() const { return band_ / q_; }
    double high() const { return high_; }

private:
    double q_;
    double rate_;
    double g_ = 0;
    double a1_ = 0;
    double state1_ = 0;
    double state2_ = 0;
    double low_ = 0;
    double band_ = 0;
    double high_ = 0;
};

/// The flattest q of a second-order filter.
inline constexpr double kFlatQ = 0.70710678;

/// Takes what lies below `corner` Hz out of a whole sound, also its mean (DC).
void cutLow(Samples& sound, double corner, int rate);

/// Takes what lies above `corner` Hz out of a whole sound.
void cutHigh(Samples& sound, double corner, int rate);

/// The echo of a small dull room with the energy of one sample: noise that falls to 1/e in `decay` seconds. Each ear
/// gets a seed of its own.
[[nodiscard]] Samples roomResponse(double decay, int rate, std::uint32_t seed);

/// Turns a loop down around its peaks so that none is above `limit`; all channels together. The loudness moves slowly
/// enough not to be heard as distortion, and goes round the seam as if the loop had always been playing.
void limitLoop(std::vector<Samples>& channels, double limit, int rate);

}  // namespace grub
