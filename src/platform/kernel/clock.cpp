#include "kernel/clock.h"

#include <chrono>

#include "kernel/waits.h"

namespace platform {
namespace {

constexpr std::int64_t kTicksPerSecond = 1000 * kTicksPerMillisecond;

}  // namespace

HandClock& handClock() {
    static HandClock clock;
    return clock;
}

std::int64_t clockNow() {
    if (handClock().inUse) return handClock().time;
    using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, kTicksPerSecond>>;
    return std::chrono::duration_cast<Ticks>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::int64_t deadlineAfter(DWORD milliseconds) {
    return milliseconds == INFINITE ? kNever : clockNow() + milliseconds * kTicksPerMillisecond;
}

HandDrivenClock::HandDrivenClock(Moves moves) {
    joinParticipants();
    const WaitGuard lock(waitLock());
    auto& clock = handClock();
    clock.time = 0;
    clock.offset = 0;
    clock.jumpsWhenAllWait = moves == Moves::WhenAllWait;
    clock.inUse = true;
}

HandDrivenClock::~HandDrivenClock() {
    {
        const WaitGuard lock(waitLock());
        handClock().inUse = false;
        recheckWaits();  // finite ones end now: their time means nothing to the system's clock
    }
    leaveParticipants();
}

void HandDrivenClock::advance(std::chrono::milliseconds time) {
    const WaitGuard lock(waitLock());
    setHandTime(handClock().time + time.count() * kTicksPerMillisecond);
}

void HandDrivenClock::settle() const {
    WaitGuard lock(waitLock());
    waitUntilOthersWait(lock);
}

std::chrono::milliseconds HandDrivenClock::now() const {
    return std::chrono::milliseconds(handClock().time / kTicksPerMillisecond);
}

void HandDrivenClock::setCounter(std::int64_t ticks) { handClock().offset = ticks - handClock().time; }

}  // namespace platform

BOOL QueryPerformanceCounter(LARGE_INTEGER* counter) {
    const auto& clock = platform::handClock();
    counter->QuadPart = clock.inUse ? clock.offset + clock.time : platform::clockNow();
    return TRUE;
}

BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency) {
    frequency->QuadPart = platform::kTicksPerSecond;
    return TRUE;
}

void Sleep(DWORD milliseconds) {
    platform::WaitGuard lock(platform::waitLock());
    platform::sleepServing(lock, nullptr, platform::deadlineAfter(milliseconds));
}
