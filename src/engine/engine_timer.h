#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace grub {

/// What a timer calls when an interval has passed.
class TimerCallback {
public:
    virtual ~TimerCallback() = default;
    /// The timer's `tick` calls this. It may stop the timer or start it again, but not destroy it.
    virtual void invoke() = 0;
};

/// Makes a callback that calls `action()`, usually a lambda over a scene.
template <class Action>
[[nodiscard]] std::unique_ptr<TimerCallback> makeCallback(Action action) {
    class Bound final : public TimerCallback {
    public:
        explicit Bound(Action bound) : action_(std::move(bound)) {}
        void invoke() override { action_(); }

    private:
        Action action_;
    };
    return std::make_unique<Bound>(std::move(action));
}

/// Fires its callback once for every whole interval of the performance counter, catching up after a slow pass. It never
/// fires by itself: its owner, on the game thread, calls `tick` in each pass of its loop.
class Timer {
public:
    /// `intervalMs` is in milliseconds. The timer does not run yet.
    explicit Timer(std::uint32_t intervalMs);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer();

    /// Runs with this callback from now on; null changes nothing. A running timer only changes its callback: the
    /// interval that has begun goes on. An interval of 0, or one too short for the counter, stops the timer instead.
    void start(std::unique_ptr<TimerCallback> callback);
    /// Destroys the callback and forgets the interval that has begun.
    void stop();
    /// Fires once for each whole interval since the last firing. The time that is left over counts for the next one.
    void tick();
    /// Milliseconds until `tick` fires again, for a loop that wants to sleep. Rounded to the nearest, so that the loop
    /// is at most about half a millisecond late. 0 when the timer is due or does not run, else at least 1.
    [[nodiscard]] std::uint32_t millisecondsUntilDue() const;
    [[nodiscard]] bool isRunning() const { return callback_ != nullptr; }

private:
    // Counter ticks since the last firing, those left over from it included.
    [[nodiscard]] std::uint32_t elapsed() const;

    std::shared_ptr<TimerCallback> callback_;  // shared with the call in progress, which may replace it
    std::uint32_t period_ = 0;                 // counter ticks
    const std::uint32_t interval_;             // milliseconds
    std::uint32_t remainder_ = 0;              // counter ticks beyond the last whole period
    const std::uint64_t ticksPerMs_;
    std::int64_t last_ = 0;  // counter when the timer last fired or was started
};

/// The running timers of the process in order of their start. Does not own them. Game thread only.
class TimerList {
public:
    /// Made on first use and never destroyed.
    static TimerList& instance();

    TimerList();
    TimerList(const TimerList&) = delete;
    TimerList& operator=(const TimerList&) = delete;
    ~TimerList();

    /// Appends the timer. Without memory for the entry the timer stays unlisted.
    void add(Timer& timer);
    /// Removes every entry of this timer and returns how many there were.
    std::size_t remove(const Timer& timer);
    /// Ticks each timer in list order. The callbacks may start and stop any timer.
    void tickAll();
    [[nodiscard]] std::size_t size() const { return size_; }

private:
    struct Node;

    void unlink(Node* node);

    Node* const sentinel_;  // closes the ring: its neighbours are the first and the last entry
    Node* upcoming_;        // entry that tickAll visits next
    std::size_t size_ = 0;
};

}  // namespace grub
