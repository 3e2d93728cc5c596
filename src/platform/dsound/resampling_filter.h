#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <windows.h>

namespace platform {

/// A place between the frames of a sound: `part` of `ResamplingFilter::parts()` behind the frame it belongs to.
using FramePart = std::uint64_t;

/// Brings sound from one rate to another: a low-pass filter, cut into one row of coefficients for each place between
/// two frames that can occur. The places are rational numbers, so nothing drifts in hours of music.
class ResamplingFilter {
public:
    /// Rates in frames a second.
    ResamplingFilter(DWORD from, DWORD to);

    /// How many frames one sample of the result is made of, centred on its place: taps / 2 - 1 before the frame of the
    /// place, the frame itself, and taps / 2 behind. A multiple of 8.
    [[nodiscard]] std::size_t taps() const { return taps_; }
    /// Into how many parts a frame is divided, and how many parts lie between two samples of the result.
    [[nodiscard]] FramePart parts() const { return parts_; }
    [[nodiscard]] FramePart step() const { return step_; }

    /// Fills `result`, starting at `part` of the frame whose first tap is `frames[0]`.
    void apply(std::span<const float> frames, FramePart part, std::span<float> result) const;

private:
    void makeRow(std::size_t row);

    FramePart parts_;
    FramePart step_;
    std::size_t taps_;
    std::size_t rows_;
    double cutoff_;  // cycles a frame
    std::vector<float> coefficients_;
};

}  // namespace platform
