#include "dsound/sound_mixer.h"

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

SoundMixer::SoundMixer(DWORD rate) : rate_(rate), limiter_(rate) {}

std::shared_ptr<const ResamplingFilter> SoundMixer::filterFrom(DWORD rate) {
    if (rate == rate_) return nullptr;
    {
        const std::lock_guard guard(lock_);
        if (const auto known = filters_.find(rate); known != filters_.end()) return known->second;
    }
    auto filter = std::make_shared<const ResamplingFilter>(rate, rate_);  // takes milliseconds: not under the lock
    const std::lock_guard guard(lock_);
    return filters_.emplace(rate, std::move(filter)).first->second;
}

void SoundMixer::add(SoundVoice& voice) {
    const std::lock_guard guard(lock_);
    voices_.push_back(&voice);
}

void SoundMixer::remove(SoundVoice& voice) {
    const std::lock_guard guard(lock_);
    std::erase(voices_, &voice);
}

bool SoundMixer::mix(std::span<float> stereo) {
    bool raised = false;
    while (!stereo.empty()) {
        const auto block = stereo.first(std::min(stereo.size(), 2 * kBlockFrames));
        lock_.lockFirst();
        const std::lock_guard guard(lock_, std::adopt_lock);
        mixBlock(block);
        raised = raised_.count > 0;
        stereo = stereo.subspan(block.size());
    }
    return raised;
}

void SoundMixer::mixBlock(std::span<float> stereo) {
    std::array<float, kBlockFrames> leftSums{};
    std::array<float, kBlockFrames> rightSums{};
    const auto left = std::span(leftSums).first(stereo.size() / 2);
    const auto right = std::span(rightSums).first(stereo.size() / 2);
    for (SoundVoice* voice : voices_) voice->mix(scratch_, left, right, raised_);
    limiter_.apply(left, right);
    for (std::size_t i = 0; i < left.size(); ++i) {
        stereo[2 * i] = left[i];
        stereo[2 * i + 1] = right[i];
    }
}

RaisedEvents SoundMixer::takeRaised() {
    const std::lock_guard guard(lock_);
    const RaisedEvents taken = raised_;
    raised_.count = 0;
    return taken;
}

}  // namespace platform
