#include "soft_limiter.h"

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

constexpr float kRecoverySeconds = 0.2F;
// From here on the gain counts as full again: -0.0001 dB.
constexpr float kNearlyFull = 0.99999F;

bool isQuiet(std::span<const float> samples) {
    return std::ranges::all_of(samples, [](float sample) { return std::abs(sample) <= 1; });
}

}  // namespace

SoftLimiter::SoftLimiter(DWORD rate) : recovery_(1 / (kRecoverySeconds * static_cast<float>(rate))) {}

void SoftLimiter::apply(std::span<float> left, std::span<float> right) {
    if (gain_ == 1 && isQuiet(left) && isQuiet(right)) return;
    for (std::size_t i = 0; i < left.size(); ++i) {
        gain_ += (1 - gain_) * recovery_;
        if (gain_ > kNearlyFull) gain_ = 1;
        const float peak = std::max(std::abs(left[i]), std::abs(right[i]));
        if (peak * gain_ > 1) gain_ = 1 / peak;
        left[i] = std::clamp(left[i] * gain_, -1.0F, 1.0F);
        right[i] = std::clamp(right[i] * gain_, -1.0F, 1.0F);
    }
}

}  // namespace platform
