#include "soft_limiter.h"

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

constexpr float kRecoverySeconds = 0.2F;
// Less than this counts as nothing: 0.0001 dB.
constexpr float kLeastMissing = 0.00001F;

bool isQuiet(std::span<const float> samples) {
    return std::ranges::all_of(samples, [](float sample) { return std::abs(sample) <= 1; });
}

}  // namespace

SoftLimiter::SoftLimiter(DWORD rate) : kept_(1 - 1 / (kRecoverySeconds * static_cast<float>(rate))) {}

void SoftLimiter::apply(std::span<float> left, std::span<float> right) {
    if (missing_ == 0 && isQuiet(left) && isQuiet(right)) return;
    for (std::size_t i = 0; i < left.size(); ++i) {
        missing_ = missing_ < kLeastMissing ? 0 : missing_ * kept_;
        const float peak = std::max(std::abs(left[i]), std::abs(right[i]));
        if (peak * (1 - missing_) > 1) missing_ = 1 - 1 / peak;
        left[i] = std::clamp(left[i] * (1 - missing_), -1.0F, 1.0F);
        right[i] = std::clamp(right[i] * (1 - missing_), -1.0F, 1.0F);
    }
}

}  // namespace platform
