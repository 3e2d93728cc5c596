#include "waits.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "clock.h"
#include "window.h"

namespace platform {

/// All waits of the process and the count of participants. Never destroyed: detached threads end after main.
class Waits {
public:
    static Waits& all() {
        static auto* waits = new Waits;
        return *waits;
    }

    std::mutex lock;
    std::vector<Wait*> list;  // oldest first
    std::size_t participants = 0;
    std::condition_variable settled;

    /// Participants that sleep with no reason to go on; nothing when one has a reason and only has not run yet.
    std::size_t sleepingForGood() const {
        std::size_t count = 0;
        for (const Wait* wait : list) {
            if (!wait->participant_ || !wait->asleep_) continue;
            if (wait->mayGoOn()) return 0;
            ++count;
        }
        return count;
    }

    void moveTime(std::int64_t time) {
        handClock().time = time;
        for (Wait* wait : list) {
            if (wait->deadline_ <= time) wait->wake_.notify_one();
        }
    }

    /// The rule of the hand-driven clock: when every participant waits, time jumps to the first end of a wait.
    void jumpIfAllWait() {
        settled.notify_all();
        if (!handClock().inUse || !handClock().jumpsWhenAllWait) return;
        if (participants == 0 || sleepingForGood() < participants) return;
        std::int64_t earliest = kNever;
        for (const Wait* wait : list) {
            if (wait->asleep_) earliest = std::min(earliest, wait->deadline_);
        }
        if (earliest != kNever) moveTime(earliest);
    }
};

namespace {

thread_local bool participating = false;

}  // namespace

std::mutex& waitLock() { return Waits::all().lock; }

Wait::Wait(const void* object, std::int64_t deadline)
    : object_(object), deadline_(deadline), thread_(GetCurrentThreadId()), participant_(participating) {
    Waits::all().list.push_back(this);
}

Wait::~Wait() { std::erase(Waits::all().list, this); }

bool Wait::mayGoOn() const { return released_ || called_ || deadline_ <= clockNow(); }

void Wait::sleepOnce(WaitGuard& lock) {
    if (deadline_ == kNever || handClock().inUse) return wake_.wait(lock);
    using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 1000 * kTicksPerMillisecond>>;
    // The system's clock here, since an unset one is measured in the same ticks.
    const auto left = Ticks(deadline_ - clockNow());
    wake_.wait_for(lock, left);
}

Wait::End Wait::sleep(WaitGuard& lock) {
    asleep_ = true;
    Waits::all().jumpIfAllWait();
    while (!mayGoOn()) sleepOnce(lock);
    asleep_ = false;
    if (released_) return End::Released;
    if (!called_) return End::TimedOut;
    called_ = false;
    return End::Called;
}

bool releaseOne(const void* object) {
    for (Wait* wait : Waits::all().list) {
        if (wait->object_ != object || wait->released_) continue;
        wait->released_ = true;
        wait->wake_.notify_one();
        return true;
    }
    return false;
}

void releaseAll(const void* object) {
    while (releaseOne(object)) {
    }
}

void callThread(DWORD thread) {
    for (Wait* wait : Waits::all().list) {
        if (wait->thread_ != thread) continue;
        wait->called_ = true;
        wait->wake_.notify_one();
    }
}

bool sleepServing(WaitGuard& lock, const void* object, std::int64_t deadline) {
    Wait wait(object, deadline);
    for (;;) {
        serveOwnWindows(lock);
        const auto end = wait.sleep(lock);
        if (end != Wait::End::Called) return end == Wait::End::Released;
    }
}

void joinParticipants() {
    announceParticipant();
    adoptParticipation();
}

void announceParticipant() {
    const WaitGuard lock(waitLock());
    ++Waits::all().participants;
}

void adoptParticipation() { participating = true; }

void leaveParticipants() {
    const WaitGuard lock(waitLock());
    participating = false;
    --Waits::all().participants;
    Waits::all().jumpIfAllWait();
}

void recheckWaits() {
    for (Wait* wait : Waits::all().list) wait->wake_.notify_one();
}

void setHandTime(std::int64_t time) { Waits::all().moveTime(time); }

void waitUntilOthersWait(WaitGuard& lock) {
    auto& waits = Waits::all();
    const std::size_t own = participating ? 1 : 0;
    // Limited naps: a wait whose reason to go on has come says nothing when it starts to run again.
    while (waits.sleepingForGood() + own < waits.participants) {
        waits.settled.wait_for(lock, std::chrono::milliseconds(1));
    }
}

}  // namespace platform
