#pragma once

#include <span>

#include <windows.h>

namespace platform {

/// Keeps sums within -1 to 1 by turning loud passages down: at once where they begin, and slowly up again behind them.
/// Sound that stays within the range is not touched.
class SoftLimiter {
public:
    /// `rate` in frames a second.
    explicit SoftLimiter(DWORD rate);
    /// Both sides get the same gain, so that nothing moves sideways.
    void apply(std::span<float> left, std::span<float> right);

private:
    float kept_;         // what one frame leaves of it
    float missing_ = 0;  // to full gain
};

}  // namespace platform
