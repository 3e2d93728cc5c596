#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "sound_id.h"

namespace grub {

/// What a frame of play asks of the sound bank.
struct SoundRequest {
    enum class Action : std::uint8_t { Play, Stop };

    SoundId sound = SoundId::Break;
    Action action = Action::Play;

    friend bool operator==(const SoundRequest&, const SoundRequest&) = default;
};

/// The requests of one frame in the order they came. The same request counts once: a sound started twice within a frame
/// cannot be heard twice, and so the list can never be full.
class SoundRequests {
public:
    /// Starts the list of a new frame.
    void clear() { count_ = 0; }
    /// Asks to start a sound, or to silence it.
    void play(SoundId sound) { add({sound, SoundRequest::Action::Play}); }
    void stop(SoundId sound) { add({sound, SoundRequest::Action::Stop}); }
    /// Valid until the list changes.
    [[nodiscard]] std::span<const SoundRequest> all() const { return {requests_.data(), count_}; }

    friend bool operator==(const SoundRequests& a, const SoundRequests& b) {
        return std::ranges::equal(a.all(), b.all());
    }

private:
    void add(SoundRequest request) {
        if (std::ranges::find(all(), request) == all().end()) requests_[count_++] = request;
    }

    std::array<SoundRequest, std::size_t{2} * kSoundCount> requests_{};
    std::size_t count_ = 0;
};

}  // namespace grub
