#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "critical_section.h"

namespace grub {

class DSoundBuffer;

/// Which sounds stream at the moment, 16 at most. The game thread takes and releases slots, the streaming threads
/// refill them; each slot has a lock of its own, which is held during a refill. A sound in a slot is not owned.
class StreamSlots {
public:
    /// How many sounds can stream at once.
    static constexpr std::size_t kCount = 16;

    /// The lowest slot without a sound, which stays free until `take`.
    [[nodiscard]] std::optional<std::size_t> findFree();
    /// Puts a sound whose ring is full into a free slot; it is about to start at the beginning of the ring.
    void take(std::size_t slot, DSoundBuffer& sound, bool loop);
    /// Empties every slot that holds the sound. Afterwards no streaming thread touches it.
    void release(const DSoundBuffer& sound);
    /// Stops every sound that streams and empties all slots.
    void stopAll();

    /// Answers the event of a slot, on a streaming thread: refills the half that has been played, or stops the sound
    /// when all of it has been heard.
    void refill(std::size_t slot);

private:
    struct Slot {
        CriticalSection lock;  // over all below
        DSoundBuffer* sound = nullptr;
        unsigned dueHalf = 0;  // the one whose end is told next
        bool looping = false;
        bool ending = false;  // nothing is left; the half that plays is the last one
    };

    std::array<Slot, kCount> slots_;
};

}  // namespace grub
