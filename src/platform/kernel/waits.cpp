#include "kernel/waits.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <vector>

#include "kernel/clock.h"

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
    std::set<DWORD> running;    // participants that have begun and not ended
    std::set<DWORD> abandoned;  // threads that sleep for ever from their next wait on
    std::condition_variable settled;

    /// The number of participants that sleep without a reason to go on; 0 when one has a reason and has not run yet.
    std::size_t sleepingForGood() const {
        std::size_t count = 0;
        for (const Wait* wait : list) {
            if (!wait->participant_ || !wait->asleep_) continue;
            if (wait->mayGoOn()) return 0;
            ++count;
        }
        return count;
    }

    bool isSleeping(DWORD thread) const {
        return std::ranges::any_of(
            list, [&](const Wait* wait) { return wait->thread_ == thread && wait->asleep_ && !wait->mayGoOn(); });
    }

    void abandon(DWORD thread) {
        abandoned.insert(thread);
        if (running.erase(thread) != 0) --participants;
        for (Wait* wait : list) {
            if (wait->thread_ != thread) continue;
            wait->abandoned_ = true;
            wait->participant_ = false;
        }
        jumpIfAllWait();
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
            if (wait->asleep_ && !wait->abandoned_) earliest = std::min(earliest, wait->deadline_);
        }
        if (earliest != kNever) moveTime(earliest);
    }
};

namespace {

thread_local bool participating = false;

}  // namespace

std::mutex& waitLock() { return Waits::all().lock; }

Wait::Wait(const void* object, std::int64_t deadline) : Wait({&single_, 1}, deadline) { single_ = object; }

Wait::Wait(std::span<const void* const> objects, std::int64_t deadline)
    : objects_(objects),
      deadline_(deadline),
      thread_(GetCurrentThreadId()),
      abandoned_(Waits::all().abandoned.contains(thread_)),
      participant_(participating && !abandoned_) {
    Waits::all().list.push_back(this);
}

Wait::~Wait() { std::erase(Waits::all().list, this); }

bool Wait::isFor(const void* object) const {
    return !abandoned_ && releasedBy_ == nullptr && std::ranges::find(objects_, object) != objects_.end();
}

bool Wait::mayGoOn() const { return !abandoned_ && (releasedBy_ != nullptr || called_ || deadline_ <= clockNow()); }

void Wait::sleepOnce(WaitGuard& lock) {
    if (deadline_ == kNever || abandoned_ || handClock().inUse) return wake_.wait(lock);
    using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 1000 * kTicksPerMillisecond>>;
    const auto left = Ticks(deadline_ - clockNow());
    wake_.wait_for(lock, left);
}

Wait::End Wait::sleep(WaitGuard& lock) {
    asleep_ = true;
    Waits::all().jumpIfAllWait();
    while (!mayGoOn()) sleepOnce(lock);
    asleep_ = false;
    if (releasedBy_ != nullptr) return End::Released;
    if (!called_) return End::TimedOut;
    called_ = false;
    return End::Called;
}

DWORD releaseOne(const void* object) {
    for (Wait* wait : Waits::all().list) {
        if (!wait->isFor(object)) continue;
        wait->releasedBy_ = object;
        wait->wake_.notify_one();
        return wait->thread_;
    }
    return 0;
}

void releaseAll(const void* object) {
    while (releaseOne(object) != 0) {
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
    return sleepServing(lock, std::span(&object, 1), deadline) != nullptr;
}

const void* sleepServing(WaitGuard& lock, std::span<const void* const> objects, std::int64_t deadline) {
    Wait wait(objects, deadline);
    do {
        if (auto* const serve = serveWindows.load()) serve(lock);
    } while (wait.sleep(lock) == Wait::End::Called);
    return wait.releasedBy();
}

void joinParticipants() {
    announceParticipant();
    adoptParticipation();
}

void announceParticipant() {
    const WaitGuard lock(waitLock());
    ++Waits::all().participants;
}

void adoptParticipation() {
    const WaitGuard lock(waitLock());
    participating = true;
    Waits::all().running.insert(GetCurrentThreadId());
}

void withdrawParticipant() {
    const WaitGuard lock(waitLock());
    --Waits::all().participants;
    Waits::all().jumpIfAllWait();
}

void leaveParticipants() {
    const WaitGuard lock(waitLock());
    participating = false;
    if (Waits::all().running.erase(GetCurrentThreadId()) == 0) return;  // it has been terminated meanwhile
    --Waits::all().participants;
    Waits::all().jumpIfAllWait();
}

void abandonThread(DWORD thread) { Waits::all().abandon(thread); }

void recheckWaits() {
    for (Wait* wait : Waits::all().list) wait->wake_.notify_one();
}

void setHandTime(std::int64_t time) { Waits::all().moveTime(time); }

bool isBusy(DWORD thread) {
    const auto& waits = Waits::all();
    return waits.running.contains(thread) && !waits.isSleeping(thread);
}

bool othersWait() {
    const auto& waits = Waits::all();
    const std::size_t own = participating ? 1 : 0;
    return waits.sleepingForGood() + own >= waits.participants;
}

// The time is limited, because a wait gives no sign when it starts to run again.
void napUntilOneSettles(WaitGuard& lock) { Waits::all().settled.wait_for(lock, std::chrono::milliseconds(1)); }

void waitUntilOthersWait(WaitGuard& lock) {
    while (!othersWait()) napUntilOneSettles(lock);
}

}  // namespace platform
