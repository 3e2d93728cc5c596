#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include <dsound.h>

#include "dsound/resampling_filter.h"
#include "dsound/sample_memory.h"

namespace platform {

/// Gain of a volume in hundredths of a decibel; -10000 and less is silence.
[[nodiscard]] float gainOf(LONG hundredths);

/// Events whose places cursors have passed, in their order. The size is fixed, because the card's callback fills it;
/// events above it are dropped.
struct RaisedEvents {
    std::array<HANDLE, 1024> events{};
    std::size_t count = 0;

    /// Appends an event.
    void add(HANDLE event) {
        if (count < events.size()) events[count++] = event;
    }
    [[nodiscard]] std::span<const HANDLE> all() const { return std::span(events).first(count); }
};

/// Memory that the mixer lends to one voice after the other.
struct MixScratch {
    std::array<float, 8192> frames;  // of one channel at the voice's own rate
    std::array<float, 512> samples;  // the same at the card's rate
};

/// A place of a voice, in frames, and the event to set when that frame has been played.
struct FrameEvent {
    std::size_t frame;
    HANDLE event;
};

/// One sound on its way through its memory: cursor, gains and position events. The mixer's lock guards it.
class SoundVoice {
public:
    /// `filter` brings the memory's rate to the card's; null when they are equal.
    SoundVoice(std::shared_ptr<SampleMemory> memory, std::shared_ptr<const ResamplingFilter> filter);

    /// Samples, shared with the duplicates of the buffer.
    [[nodiscard]] SampleMemory& memory() const { return *memory_; }
    [[nodiscard]] const std::shared_ptr<SampleMemory>& sharedMemory() const { return memory_; }
    [[nodiscard]] const std::shared_ptr<const ResamplingFilter>& filter() const { return filter_; }

    /// Goes on at the cursor; a voice that plays only learns whether to loop.
    void play(bool looping);
    void stop() { playing_ = false; }
    [[nodiscard]] bool playing() const { return playing_; }
    [[nodiscard]] bool looping() const { return looping_; }

    /// The frame that is played next.
    void setCursor(std::size_t frame);
    [[nodiscard]] std::size_t cursor() const { return cursor_; }

    /// Hundredths of a decibel, as the interface has them.
    void setVolume(LONG volume);
    void setPan(LONG pan);
    [[nodiscard]] LONG volume() const { return volume_; }
    [[nodiscard]] LONG pan() const { return pan_; }

    /// Replaces the position events; equal places keep their order.
    void setEvents(std::vector<FrameEvent> events);

    /// Adds the next samples at the card's rate to both sides, moves the cursor on and reports the events it passed.
    void mix(MixScratch& scratch, std::span<float> left, std::span<float> right, RaisedEvents& raised);

private:
    [[nodiscard]] std::size_t countAtOnce(std::size_t wanted, const MixScratch& scratch) const;
    void setGains();
    void prime();
    std::span<const float> nextFrames(MixScratch& scratch, std::size_t channel, std::size_t count);
    void readFrames(std::size_t first, std::size_t channel, std::span<float> frames) const;
    void passFrames(std::size_t count, RaisedEvents& raised);

    // One frame for each sample when there is no filter.
    [[nodiscard]] FramePart parts() const { return filter_ ? filter_->parts() : 1; }
    [[nodiscard]] FramePart step() const { return filter_ ? filter_->step() : 1; }
    [[nodiscard]] std::size_t taps() const { return filter_ ? filter_->taps() : 0; }
    [[nodiscard]] std::size_t framesIn(std::size_t samples) const {
        return static_cast<std::size_t>((part_ + samples * step()) / parts());
    }
    [[nodiscard]] std::span<float> around(std::size_t channel) { return {&around_[channel * taps()], taps()}; }

    std::shared_ptr<SampleMemory> memory_;
    std::shared_ptr<const ResamplingFilter> filter_;
    std::vector<FrameEvent> events_;  // by frame
    // For each channel the frames around the cursor that the filter needs. They are read once and kept, because a
    // stream already refills what lies behind the cursor.
    std::vector<float> around_;
    bool primed_ = false;  // around_ belongs to this cursor
    std::size_t cursor_ = 0;
    FramePart part_ = 0;  // how far the place is behind the cursor's frame
    bool playing_ = false;
    bool looping_ = false;
    LONG volume_ = 0;
    LONG pan_ = 0;
    std::array<float, 2> gains_{1, 1};  // left, right
};

}  // namespace platform
