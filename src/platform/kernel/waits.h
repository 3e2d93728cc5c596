#pragma once

#include <windows.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <span>

/// How threads wait for each other: one lock for everything that can end a wait, one condition variable for each wait.
/// The hand-driven clock moves only when every participant waits and no event is about to wake one. One lock lets it
/// check this.
namespace platform {

/// Holds the wait lock; functions that take one let go of it while they sleep or serve.
using WaitGuard = std::unique_lock<std::mutex>;

/// Guards events, thread ends, message queues and the hand-driven time. Never held while a window procedure runs.
[[nodiscard]] std::mutex& waitLock();

/// One wait of the calling thread. Make and destroy it under the wait lock. It notices every release in between, also
/// while the thread serves its windows instead of sleeping.
class Wait {
public:
    enum class End { Released, Called, TimedOut };

    /// Waits for a release of `object` until `deadline`; with null only the deadline or a call ends it.
    Wait(const void* object, std::int64_t deadline);
    /// Waits for a release of one of `objects`; the span's memory outlives the wait.
    Wait(std::span<const void* const> objects, std::int64_t deadline);
    ~Wait();
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    /// Sleeps until released, called or too late. May be called again after Called.
    End sleep(WaitGuard& lock);
    /// The object whose release ended the wait; else null.
    [[nodiscard]] const void* releasedBy() const { return releasedBy_; }

private:
    friend DWORD releaseOne(const void* object);
    friend void callThread(DWORD thread);
    friend void recheckWaits();
    friend class Waits;

    [[nodiscard]] bool isFor(const void* object) const;
    [[nodiscard]] bool mayGoOn() const;
    void sleepOnce(WaitGuard& lock);

    const void* single_ = nullptr;
    std::span<const void* const> objects_;
    std::int64_t deadline_;
    DWORD thread_;
    bool abandoned_;  // the thread has been terminated
    bool participant_;
    bool asleep_ = false;
    bool called_ = false;
    const void* releasedBy_ = nullptr;
    std::condition_variable wake_;
};

/// Ends the oldest wait for `object`. Returns the id of the thread that waited, or 0. Under the wait lock.
DWORD releaseOne(const void* object);
/// Ends all present waits for `object`. Under the wait lock.
void releaseAll(const void* object);
/// Interrupts the waits of a thread, because its window has something to do. Under the wait lock.
void callThread(DWORD thread);

/// What a thread does for its own windows while it waits: called with the wait lock held, returns with it held, may let
/// go of it meanwhile. Null until the first window exists, which sets it (desktop/messages.h).
inline std::atomic<void (*)(WaitGuard& lock)> serveWindows{nullptr};

/// Waits like Wait, and serves the windows of the calling thread meanwhile. True when released, false when too late.
bool sleepServing(WaitGuard& lock, const void* object, std::int64_t deadline);
/// The same for several objects: the one that was released, null when too late.
const void* sleepServing(WaitGuard& lock, std::span<const void* const> objects, std::int64_t deadline);

/// Counts the calling thread among those whose waits let the hand-driven clock move (or no longer).
void joinParticipants();
void leaveParticipants();
/// The creator of a thread calls announceParticipant() before the start, so that the clock does not move before the
/// thread runs. The thread itself calls adoptParticipation() first. When it does not start, its creator calls
/// withdrawParticipant().
void announceParticipant();
void adoptParticipation();
void withdrawParticipant();
/// Lets a thread sleep for ever in its present wait, or in its next one. Under the wait lock.
void abandonThread(DWORD thread);

/// Sets the hand-driven time and wakes the waits whose time has come. Under the wait lock.
void setHandTime(std::int64_t time);
/// Lets all waits look at the clock again, because another clock took its place. Under the wait lock.
void recheckWaits();
/// Whether a participant runs or is about to: it has not ended, and no wait holds it. Under the wait lock.
[[nodiscard]] bool isBusy(DWORD thread);
/// Whether a wait holds every participant but the caller. Under the wait lock.
[[nodiscard]] bool othersWait();
/// Sleeps until some thread goes to sleep or ends, for a millisecond at most. Under the wait lock.
void napUntilOneSettles(WaitGuard& lock);
/// Sleeps in real time until `othersWait`. Under the wait lock.
void waitUntilOthersWait(WaitGuard& lock);

}  // namespace platform
