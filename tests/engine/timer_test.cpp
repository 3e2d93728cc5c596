#include "engine_timer.h"

#include <gtest/gtest.h>

#include <vector>

#include "testing.h"

namespace grub {
namespace {

using namespace std::chrono_literals;
using platform::testing::HandDrivenClock;

/// A clock that tests move, and a timer of 40 ms whose firings are counted.
class TimerTest : public testing::Test {
protected:
    void startCounting(Timer& timer) {
        timer.start(makeCallback([this] { ++firings_; }));
    }
    int firingsAfter(Timer& timer, std::chrono::milliseconds time) {
        clock_.advance(time);
        firings_ = 0;
        timer.tick();
        return firings_;
    }

    HandDrivenClock clock_{HandDrivenClock::Moves::ByHand};
    Timer timer_{40};
    int firings_ = 0;
};

TEST_F(TimerTest, FiresForEveryWholeIntervalAndKeepsTheRest) {
    startCounting(timer_);
    EXPECT_EQ(firingsAfter(timer_, 130ms), 3);
    EXPECT_EQ(firingsAfter(timer_, 29ms), 0);
    EXPECT_EQ(firingsAfter(timer_, 1ms), 1);
}

TEST_F(TimerTest, TickingMoreOftenThanTheIntervalLosesNothing) {
    startCounting(timer_);
    for (int ms = 0; ms < 10'000; ++ms) {
        clock_.advance(1ms);
        timer_.tick();
    }
    EXPECT_EQ(firings_, 250);
}

TEST_F(TimerTest, TimeBetweenItsTwoReadingsOfTheClockIsLeftOut) {
    constexpr std::int64_t kTicksPerMs = 10'000;
    clock_.addAtEachReading(kTicksPerMs);
    startCounting(timer_);
    while (firings_ < 100) timer_.tick();
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    // Each firing reads a second time; the millisecond that takes belongs to no interval.
    EXPECT_EQ(now.QuadPart, (100 * (40 + 1) + 1) * kTicksPerMs) << "this reading comes one after the last";
}

TEST_F(TimerTest, SaysHowLongALoopMaySleep) {
    EXPECT_EQ(timer_.millisecondsUntilDue(), 0U) << "not running";
    startCounting(timer_);
    EXPECT_EQ(timer_.millisecondsUntilDue(), 40U);
    clock_.advance(39ms);
    EXPECT_EQ(timer_.millisecondsUntilDue(), 1U);
    clock_.advance(20ms);
    EXPECT_EQ(timer_.millisecondsUntilDue(), 0U);
    timer_.tick();
    EXPECT_EQ(timer_.millisecondsUntilDue(), 21U);
}

TEST_F(TimerTest, RoundsTheSleepToTheNearestMillisecond) {
    startCounting(timer_);
    clock_.setCounter(374'000);
    EXPECT_EQ(timer_.millisecondsUntilDue(), 3U) << "2.6 ms are left";
    clock_.setCounter(376'000);
    EXPECT_EQ(timer_.millisecondsUntilDue(), 2U) << "2.4 ms are left";
    clock_.setCounter(399'000);
    EXPECT_EQ(timer_.millisecondsUntilDue(), 1U) << "a little is left, so it is not due";
}

TEST_F(TimerTest, CountsTheIntervalInWholeTicksOfAnyCounter) {
    struct Row {
        std::int64_t frequency;  // ticks a second
        std::int64_t counter;    // at the start
        std::uint32_t interval;  // ms
        std::int64_t period;     // ticks; 0: cannot run
    };
    const Row rows[] = {
        {999, 0, 40, 0},
        {3'579'545, 0, 40, 143'160},
        {10'000'000, 0, 40, 400'000},
        {10'000'000, (std::int64_t{1} << 32) - 5, 40, 400'000},
        {1'000'000'000, 0, 1000, 1'000'000'000},
        {10'000'000, 0, 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.frequency << " Hz from " << row.counter << ", " << row.interval
                                        << " ms");
        clock_.setFrequency(row.frequency);
        clock_.setCounter(row.counter);
        Timer timer(row.interval);
        startCounting(timer);
        EXPECT_EQ(timer.isRunning(), row.period != 0);
        firings_ = 0;
        clock_.setCounter(row.counter + row.period - 1);
        timer.tick();
        EXPECT_EQ(firings_, 0);
        clock_.setCounter(row.counter + row.period);
        timer.tick();
        EXPECT_EQ(firings_, row.period != 0 ? 1 : 0);
    }
}

TEST_F(TimerTest, RestartKeepsThePhaseOnlyOfARunningTimer) {
    for (const bool stopBetween : {false, true}) {
        Timer timer(40);
        startCounting(timer);
        clock_.advance(30ms);
        if (stopBetween) timer.stop();
        startCounting(timer);
        EXPECT_EQ(firingsAfter(timer, 10ms), stopBetween ? 0 : 1) << "stopped between: " << stopBetween;
        EXPECT_EQ(firingsAfter(timer, 30ms), stopBetween ? 1 : 0);
    }
}

TEST_F(TimerTest, StopForgetsTheRestOfTheLastInterval) {
    startCounting(timer_);
    EXPECT_EQ(firingsAfter(timer_, 70ms), 1);
    timer_.stop();
    startCounting(timer_);
    EXPECT_EQ(firingsAfter(timer_, 39ms), 0);
}

TEST_F(TimerTest, StartWithoutACallbackChangesNothing) {
    timer_.start(nullptr);
    EXPECT_FALSE(timer_.isRunning());
    startCounting(timer_);
    timer_.start(nullptr);
    EXPECT_EQ(firingsAfter(timer_, 40ms), 1);
}

TEST_F(TimerTest, AnIntervalThatBecomesTooShortStopsARunningTimer) {
    const std::size_t listed = TimerList::instance().size();
    {
        Timer timer(0);
        startCounting(timer);
        startCounting(timer);
        EXPECT_FALSE(timer.isRunning());
        EXPECT_EQ(TimerList::instance().size(), listed);
    }
    TimerList::instance().tickAll();
    EXPECT_EQ(firings_, 0);
}

TEST_F(TimerTest, ACallbackThatStopsItsTimerIsCalledOnce) {
    int calls = 0;
    timer_.start(makeCallback([this, &calls] {
        timer_.stop();
        ++calls;  // uses what the callback captured: it must still be alive
    }));
    EXPECT_EQ(firingsAfter(timer_, 120ms), 0);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(timer_.isRunning());
}

TEST_F(TimerTest, ACallbackThatReplacesItselfHandsOverTheRemainingCalls) {
    int calls = 0;
    timer_.start(makeCallback([this, &calls] {
        startCounting(timer_);
        ++calls;
    }));
    EXPECT_EQ(firingsAfter(timer_, 120ms), 2);
    EXPECT_EQ(calls, 1);
}

TEST_F(TimerTest, TheListTicksItsTimersInOrderOfTheirStart) {
    std::vector<int> order;
    Timer other(40);
    other.start(makeCallback([&] { order.push_back(1); }));
    timer_.start(makeCallback([&] { order.push_back(2); }));
    clock_.advance(40ms);
    TimerList::instance().tickAll();
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_F(TimerTest, TheListSurvivesTheRemovalOfTheCurrentAndTheNextTimer) {
    std::vector<int> order;
    Timer next(40);
    Timer last(40);
    timer_.start(makeCallback([&] {
        order.push_back(1);
        next.stop();
        timer_.stop();
    }));
    next.start(makeCallback([&] { order.push_back(2); }));
    last.start(makeCallback([&] { order.push_back(3); }));
    clock_.advance(40ms);
    TimerList::instance().tickAll();
    EXPECT_EQ(order, (std::vector{1, 3}));
}

TEST_F(TimerTest, RemovingTakesOutEveryEntryOfATimer) {
    TimerList list;
    list.add(timer_);
    Timer other(40);
    list.add(other);
    list.add(timer_);
    EXPECT_EQ(list.remove(timer_), 2U);
    EXPECT_EQ(list.size(), 1U);
    EXPECT_EQ(list.remove(timer_), 0U);
}

}  // namespace
}  // namespace grub
