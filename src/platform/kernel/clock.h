#pragma once

#include <windows.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <limits>

/// The time that waits and the counter share, in ticks of 100 ns.
namespace platform {

/// A tick is 100 ns.
inline constexpr std::int64_t kTicksPerMillisecond = 10'000;
/// The deadline of a wait without end.
inline constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

/// Now, in ticks; the hand-driven clock's time while there is one.
[[nodiscard]] std::int64_t clockNow();
/// The end of a wait that starts now; INFINITE never ends.
[[nodiscard]] std::int64_t deadlineAfter(DWORD milliseconds);

/// The state of the hand-driven clock. Threads write `time` under the wait lock only.
struct HandClock {
    std::atomic<bool> inUse{false};
    std::atomic<bool> jumpsWhenAllWait{false};
    std::atomic<std::int64_t> time{0};
    std::atomic<std::int64_t> offset{0};  // the counter reads `time` plus this
};
[[nodiscard]] HandClock& handClock();

/// Replaces the clock by one that scripts and tests move; at most one exists. Make it before other threads wait. It
/// starts at 0. Sleep and finite waits end when this clock reaches their time, or when the object dies. Threads made by
/// CreateThread and the thread that made the clock are its participants.
class HandDrivenClock {
public:
    enum class Moves {
        WhenAllWait,  // jumps to the earliest end of a wait as soon as every participant waits (GetMessageA is a wait)
        ByHand,       // moves by advance() only
    };
    explicit HandDrivenClock(Moves moves = Moves::WhenAllWait);
    ~HandDrivenClock();
    HandDrivenClock(const HandDrivenClock&) = delete;
    HandDrivenClock& operator=(const HandDrivenClock&) = delete;

    /// Moves the clock forward and wakes the waits whose time has come.
    void advance(std::chrono::milliseconds time);
    /// Waits (in real time) until every other participant waits for something that has not come.
    void settle() const;
    [[nodiscard]] std::chrono::milliseconds now() const;
    /// Lets the counter read `ticks` now.
    void setCounter(std::int64_t ticks);
};

}  // namespace platform
