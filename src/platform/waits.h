#pragma once

#include <windows.h>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <span>

/// How threads wait for each other: one lock for everything that can end a wait, one condition variable for each wait.
/// With one lock "every participant waits, and nothing that would wake one has happened" is a question with an answer,
/// and the hand-driven clock needs that answer.
namespace platform {

/// Holds the wait lock; functions that take one let go of it while they sleep or serve.
using WaitGuard = std::unique_lock<std::mutex>;

/// Guards events, thread ends, message queues and the hand-driven time. Never held while a window procedure runs.
[[nodiscard]] std::mutex& waitLock();

/// One wait of the calling thread, from construction to destruction under the wait lock. What happens in between is not
/// lost, even while the thread serves its windows instead of sleeping.
class Wait {
public:
    enum class End { Released, Called, TimedOut };
    /// A taker uses one release up; an onlooker wakes with it and leaves it to a taker.
    enum class Role { Taker, Onlooker };

    /// Waits for a release of `object` (null: for none) until `deadline`.
    Wait(const void* object, std::int64_t deadline);
    /// Waits for a release of one of `objects`; the span's memory outlives the wait.
    Wait(std::span<const void* const> objects, std::int64_t deadline, Role role);
    ~Wait();
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    /// Sleeps until released, called or too late. May be called again after Called.
    End sleep(WaitGuard& lock);
    /// The object whose release ended the wait; null before.
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
    Role role_;
    DWORD thread_;
    bool abandoned_;  // the thread has been terminated
    bool participant_;
    bool asleep_ = false;
    bool called_ = false;
    const void* releasedBy_ = nullptr;
    std::condition_variable wake_;
};

/// Ends the oldest wait for `object`. The number of the thread that waited, 0 when nobody did. Under the wait lock.
DWORD releaseOne(const void* object);
/// Ends all present waits for `object`. Under the wait lock.
void releaseAll(const void* object);
/// Interrupts the waits of a thread, because there is something for its windows to do. Under the wait lock.
void callThread(DWORD thread);

/// Waits like Wait, and serves the windows of the calling thread meanwhile. True when released, false when too late.
bool sleepServing(WaitGuard& lock, const void* object, std::int64_t deadline);
/// The same for several objects: the one that was released, null when too late.
const void* sleepServing(WaitGuard& lock, std::span<const void* const> objects, std::int64_t deadline, Wait::Role role);

/// Counts the calling thread among those whose waits let the hand-driven clock move (or no longer).
void joinParticipants();
void leaveParticipants();
/// Counts a thread that is about to start, so that no gap opens before it runs; it calls adoptParticipation() first.
/// withdrawParticipant() takes the announcement of a thread that does not start back.
void announceParticipant();
void adoptParticipation();
void withdrawParticipant();
/// Lets a thread sleep for ever in the wait that it is in, or in its next one. Under the wait lock.
void abandonThread(DWORD thread);

/// Sets the hand-driven time and wakes the waits whose time has come. Under the wait lock.
void setHandTime(std::int64_t time);
/// Lets all waits look at the clock again, because it has been exchanged. Under the wait lock.
void recheckWaits();
/// Whether a participant is doing something: it neither ended nor waits for something that has not come.
[[nodiscard]] bool isBusy(DWORD thread);
/// Whether every participant but the caller waits for something that has not come. Both under the wait lock.
[[nodiscard]] bool othersWait();
/// Sleeps until some thread goes to sleep or ends, for a millisecond at most. Under the wait lock.
void napUntilOneSettles(WaitGuard& lock);
/// Sleeps in real time until every other participant waits for something that has not come. Under the wait lock.
void waitUntilOthersWait(WaitGuard& lock);

}  // namespace platform
