#include "engine_timer.h"

#include <windows.h>

#include <algorithm>

#include "block_pool.h"

namespace grub {

namespace {

constexpr std::uint32_t kSpeedPercent = 100;  // every timer of the game runs at the speed of its interval

std::int64_t counterNow() {
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    return counter.QuadPart;
}

std::uint64_t counterTicksPerMs() {
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    return static_cast<std::uint64_t>(frequency.QuadPart) / 1000;
}

std::uint32_t low32(std::int64_t counter) { return static_cast<std::uint32_t>(counter); }

}  // namespace

Timer::Timer(std::uint32_t intervalMs) : interval_(intervalMs), ticksPerMs_(counterTicksPerMs()) {}

Timer::~Timer() { stop(); }

void Timer::start(std::unique_ptr<TimerCallback> callback) {
    if (!callback) return;
    const bool wasRunning = isRunning();
    const std::uint32_t period = kSpeedPercent * interval_ / 100 * static_cast<std::uint32_t>(ticksPerMs_);
    if (period == 0) return stop();
    period_ = period;
    callback_ = std::move(callback);
    if (wasRunning) return;
    last_ = counterNow();
    TimerList::instance().add(*this);
}

void Timer::stop() {
    if (!isRunning()) return;
    TimerList::instance().remove(*this);
    callback_.reset();
    remainder_ = 0;
    period_ = 0;
}

// 32 bits wrap around: at 10 MHz only a timer without a tick for 429 s loses time.
std::uint32_t Timer::elapsed() const { return remainder_ + (low32(counterNow()) - low32(last_)); }

std::uint32_t Timer::millisecondsUntilDue() const {
    const std::uint32_t passed = isRunning() ? elapsed() : period_;
    if (passed >= period_) return 0;
    const auto nearest = static_cast<std::uint32_t>((period_ - passed + ticksPerMs_ / 2) / ticksPerMs_);
    return std::max(nearest, 1U);
}

void Timer::tick() {
    if (!isRunning()) return;
    const std::uint32_t passed = elapsed();
    if (passed < period_) return;
    last_ = counterNow();  // a second reading: what passed since the first one is left out on purpose
    remainder_ = passed % period_;
    for (std::uint32_t firings = passed / period_; firings > 0 && callback_; --firings) {
        const auto invoked = callback_;
        invoked->invoke();
    }
}

struct TimerList::Node : PoolAllocated<TimerList::Node> {
    Node* next;
    Node* previous;
    Timer* timer;

    explicit Node(Timer* ticked) : next(this), previous(this), timer(ticked) {}
};

TimerList& TimerList::instance() {
    static TimerList& list = *new TimerList;
    return list;
}

TimerList::TimerList() : sentinel_(new Node(nullptr)), upcoming_(sentinel_) {}

TimerList::~TimerList() {
    while (sentinel_->next != sentinel_) unlink(sentinel_->next);
    delete sentinel_;
}

void TimerList::add(Timer& timer) {
    auto* const node = new Node(&timer);
    if (!node) return;
    node->next = sentinel_;
    node->previous = sentinel_->previous;
    node->previous->next = node;
    sentinel_->previous = node;
    ++size_;
}

std::size_t TimerList::remove(const Timer& timer) {
    std::size_t removed = 0;
    for (Node* node = sentinel_->next; node != sentinel_;) {
        Node* const next = node->next;
        if (node->timer == &timer) {
            unlink(node);
            ++removed;
        }
        node = next;
    }
    return removed;
}

void TimerList::unlink(Node* node) {
    if (upcoming_ == node) upcoming_ = node->next;
    node->previous->next = node->next;
    node->next->previous = node->previous;
    delete node;
    --size_;
}

void TimerList::tickAll() {
    upcoming_ = sentinel_->next;
    while (upcoming_ != sentinel_) {
        Timer* const timer = upcoming_->timer;
        upcoming_ = upcoming_->next;
        timer->tick();
    }
}

}  // namespace grub
