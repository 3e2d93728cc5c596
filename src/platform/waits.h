#pragma once

#include <windows.h>

#include <condition_variable>
#include <cstdint>
#include <mutex>

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

    /// Waits for a release of `object` (null: for none) until `deadline`.
    Wait(const void* object, std::int64_t deadline);
    ~Wait();
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    /// Sleeps until released, called or too late. May be called again after Called.
    End sleep(WaitGuard& lock);

private:
    friend bool releaseOne(const void* object);
    friend void releaseAll(const void* object);
    friend void callThread(DWORD thread);
    friend void recheckWaits();
    friend class Waits;

    [[nodiscard]] bool mayGoOn() const;
    void sleepOnce(WaitGuard& lock);

    const void* object_;
    std::int64_t deadline_;
    DWORD thread_;
    bool participant_;
    bool asleep_ = false;
    bool released_ = false;
    bool called_ = false;
    std::condition_variable wake_;
};

/// Ends the oldest wait for `object`; false when nobody waits for it. Under the wait lock.
bool releaseOne(const void* object);
/// Ends all present waits for `object`. Under the wait lock.
void releaseAll(const void* object);
/// Interrupts the waits of a thread, because there is something for its windows to do. Under the wait lock.
void callThread(DWORD thread);

/// Waits like Wait, and serves the windows of the calling thread meanwhile. True when released, false when too late.
bool sleepServing(WaitGuard& lock, const void* object, std::int64_t deadline);

/// Counts the calling thread among those whose waits let the hand-driven clock move (or no longer).
void joinParticipants();
void leaveParticipants();
/// Counts a thread that is about to start, so that no gap opens before it runs; it calls adoptParticipation() first.
void announceParticipant();
void adoptParticipation();

/// Sets the hand-driven time and wakes the waits whose time has come. Under the wait lock.
void setHandTime(std::int64_t time);
/// Lets all waits look at the clock again, because it has been exchanged. Under the wait lock.
void recheckWaits();
/// Sleeps in real time until every other participant waits for something that has not come. Under the wait lock.
void waitUntilOthersWait(WaitGuard& lock);

}  // namespace platform
