#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "critical_section.h"

namespace grub {

class DSoundBuffer;

/// The sounds that stream at the moment, 16 at most. The game thread takes and releases slots, the streaming threads
/// refill them. Each slot has its own lock, which a refill holds. A slot does not own its sound.
class StreamSlots {
public:
    static constexpr std::size_t kCount = 16;

    /// The lowest slot without a sound; it stays free until `take`.
    [[nodiscard]] std::optional<std::size_t> findFree();
    /// Puts a sound into a free slot. Its ring must be full, and it must start at the beginning of the ring next.
    void take(std::size_t slot, DSoundBuffer& sound, bool loop);
    /// Empties every slot that holds the sound. Afterwards no streaming thread uses the sound.
    void release(const DSoundBuffer& sound);
    /// Stops every sound that streams and empties all slots.
    void stopAll();

    /// Handles the event of a slot, on a streaming thread: refills the half that has been played, or stops the sound
    /// when it has been heard to its end.
    void refill(std::size_t slot);

private:
    struct Slot {
        CriticalSection lock;  // over all below
        DSoundBuffer* sound = nullptr;
        unsigned dueHalf = 0;  // the half that ends next
        bool looping = false;
        bool ending = false;  // the decoder has ended; the half that plays is the last one
    };

    std::array<Slot, kCount> slots_;
};

}  // namespace grub
