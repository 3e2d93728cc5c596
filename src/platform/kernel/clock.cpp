#include "kernel/clock.h"

#include <chrono>

#include "kernel/waits.h"

namespace platform {
namespace {

constexpr std::int64_t kTicksPerSecond = 1000 * kTicksPerMillisecond;

/// time x frequency / 10 MHz; split so that neither product leaves 64 bits.
std::int64_t scaled(std::int64_t time, std::int64_t frequency) {
    return time / kTicksPerSecond * frequency + time % kTicksPerSecond * frequency / kTicksPerSecond;
}

std::int64_t readHandClock(HandClock& clock) {
    const WaitGuard lock(waitLock());
    const std::int64_t counter = clock.offset + scaled(clock.time, clock.frequency);
    clock.offset += clock.ticksAtEachReading;
    return counter;
}

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
    clock.ticksAtEachReading = 0;
    clock.frequency = kTicksPerSecond;
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

void HandDrivenClock::setFrequency(std::int64_t ticksPerSecond) { handClock().frequency = ticksPerSecond; }

void HandDrivenClock::setCounter(std::int64_t ticks) {
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    handClock().offset += ticks - counter.QuadPart;
}

void HandDrivenClock::addAtEachReading(std::int64_t ticks) { handClock().ticksAtEachReading = ticks; }

}  // namespace platform

BOOL QueryPerformanceCounter(LARGE_INTEGER* counter) {
    auto& clock = platform::handClock();
    counter->QuadPart = clock.inUse ? platform::readHandClock(clock) : platform::clockNow();
    return TRUE;
}

BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency) {
    auto& clock = platform::handClock();
    frequency->QuadPart = clock.inUse ? clock.frequency.load() : platform::kTicksPerSecond;
    return TRUE;
}

void Sleep(DWORD milliseconds) {
    platform::WaitGuard lock(platform::waitLock());
    platform::sleepServing(lock, nullptr, platform::deadlineAfter(milliseconds));
}
