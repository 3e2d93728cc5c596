#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <limits>

/// The time that waits and the counter share, in ticks of 10 MHz.
namespace platform {

/// One tick is 100 ns. kNever is the deadline of a wait without one.
inline constexpr std::int64_t kTicksPerMillisecond = 10'000;
inline constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

/// Now, in ticks; from the hand-driven clock while there is one.
[[nodiscard]] std::int64_t clockNow();
/// The end of a wait that starts now; INFINITE never ends.
[[nodiscard]] std::int64_t deadlineAfter(DWORD milliseconds);

/// The clock that tests and scripts drive. `time` is written under the wait lock only.
struct HandClock {
    std::atomic<bool> inUse{false};
    std::atomic<bool> jumpsWhenAllWait{false};
    std::atomic<std::int64_t> time{0};
    // How the counter reads: offset + time scaled to the frequency.
    std::atomic<std::int64_t> frequency{0};
    std::atomic<std::int64_t> offset{0};
    std::atomic<std::int64_t> ticksAtEachReading{0};
};
[[nodiscard]] HandClock& handClock();

}  // namespace platform
