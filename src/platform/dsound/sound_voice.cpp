#include "dsound/sound_voice.h"

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

constexpr LONG kSilence = -10'000;

void addScaled(std::span<float> sum, std::span<const float> samples, float gain) {
    for (std::size_t i = 0; i < samples.size(); ++i) sum[i] += samples[i] * gain;
}

}  // namespace

float gainOf(LONG hundredths) {
    return hundredths <= kSilence ? 0.0F : static_cast<float>(std::pow(10.0, hundredths / 2000.0));
}

SoundVoice::SoundVoice(std::shared_ptr<SampleMemory> memory, std::shared_ptr<const ResamplingFilter> filter)
    : memory_(std::move(memory)), filter_(std::move(filter)), around_(taps() * memory_->format().channels) {}

void SoundVoice::play(bool looping) {
    if (!playing_) primed_ = false;
    playing_ = true;
    looping_ = looping;
}

void SoundVoice::setCursor(std::size_t frame) {
    cursor_ = frame;
    part_ = 0;
    primed_ = false;
}

void SoundVoice::setVolume(LONG volume) {
    volume_ = volume;
    setGains();
}

void SoundVoice::setPan(LONG pan) {
    pan_ = pan;
    setGains();
}

void SoundVoice::setGains() {
    gains_[0] = gainOf(volume_) * gainOf(std::min(-pan_, 0));
    gains_[1] = gainOf(volume_) * gainOf(std::min(pan_, 0));
}

void SoundVoice::setEvents(std::vector<FrameEvent> events) {
    std::ranges::stable_sort(events, {}, &FrameEvent::frame);
    events_ = std::move(events);
}

void SoundVoice::mix(MixScratch& scratch, std::span<float> left, std::span<float> right, RaisedEvents& raised) {
    while (playing_ && !left.empty()) {
        const std::size_t count = countAtOnce(left.size(), scratch);
        if (!primed_) prime();
        for (std::size_t channel = 0; channel < memory_->format().channels; ++channel) {
            const auto samples = nextFrames(scratch, channel, count);
            const bool mono = memory_->format().channels == 1;
            if (mono || channel == 0) addScaled(left, samples, gains_[0]);
            if (mono || channel == 1) addScaled(right, samples, gains_[1]);
        }
        const std::size_t passed = framesIn(count);
        part_ = (part_ + count * step()) % parts();
        passFrames(passed, raised);
        left = left.subspan(count);
        right = right.subspan(count);
    }
}

/// The number of samples that fit into the scratch memory and, without looping, into the rest of the sound.
std::size_t SoundVoice::countAtOnce(std::size_t wanted, const MixScratch& scratch) const {
    const auto room = static_cast<std::size_t>((scratch.frames.size() - taps() - 1) * parts() / step());
    const std::size_t count = std::min({wanted, scratch.samples.size(), room});
    if (looping_) return count;
    const FramePart left = (memory_->frames() - cursor_) * parts() - part_;
    return std::min(count, static_cast<std::size_t>((left + step() - 1) / step()));
}

/// Fills `around_` for the cursor, with silence before it.
void SoundVoice::prime() {
    primed_ = true;
    if (!filter_) return;
    const std::size_t before = taps() / 2 - 1;
    for (std::size_t channel = 0; channel < memory_->format().channels; ++channel) {
        std::ranges::fill(around(channel).first(before), 0.0F);
        readFrames(cursor_, channel, around(channel).subspan(before));
    }
}

/// The next samples of one channel at the card's rate; the frames around the cursor move on with them.
std::span<const float> SoundVoice::nextFrames(MixScratch& scratch, std::size_t channel, std::size_t count) {
    const std::span<float> samples(scratch.samples.data(), count);
    if (!filter_) {
        readFrames(cursor_, channel, samples);
        return samples;
    }
    const std::size_t more = framesIn(count);
    const std::span<float> frames(scratch.frames.data(), taps() + more);
    std::ranges::copy(around(channel), frames.begin());
    readFrames(cursor_ + taps() / 2 + 1, channel, frames.subspan(taps()));
    filter_->apply(frames, part_, samples);
    std::ranges::copy(frames.last(taps()), around(channel).begin());
    return samples;
}

/// A looping sound starts again at its end; behind the end of another sound there is silence.
void SoundVoice::readFrames(std::size_t first, std::size_t channel, std::span<float> frames) const {
    const std::size_t all = memory_->frames();
    if (looping_) first %= all;
    while (!frames.empty() && first < all) {
        const std::size_t count = std::min(frames.size(), all - first);
        memory_->read(first, channel, frames.first(count));
        frames = frames.subspan(count);
        first = looping_ ? 0 : all;
    }
    std::ranges::fill(frames, 0.0F);
}

void SoundVoice::passFrames(std::size_t count, RaisedEvents& raised) {
    const std::size_t all = memory_->frames();
    while (count > 0 && playing_) {
        const std::size_t end = std::min(all, cursor_ + count);
        for (const FrameEvent& at : events_) {
            if (at.frame >= cursor_ && at.frame < end) raised.add(at.event);
        }
        count -= end - cursor_;
        cursor_ = end;
        if (cursor_ < all) continue;
        cursor_ = 0;
        if (looping_) continue;
        playing_ = false;
        part_ = 0;
    }
}

}  // namespace platform
