#include "engine_timer.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <utility>

#include "control/testing.h"

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

// A story is what happens to a timer of 40 ms, in words: "start", "stop", "null" (a start without a callback), and
// "30=1" for a tick 30 ms later that fires once.
TEST_F(TimerTest, FiresForEveryWholeIntervalAsItsStoryTells) {
    for (const auto& [what, told] :
         {std::pair{"the rest of an interval counts for the next", "start 130=3 29=0 1=1 39=0 1=1"},
          {"a restart keeps the phase of a running timer", "start 30=0 start 10=1 30=0 10=1"},
          {"a stopped timer begins a new interval", "start 30=0 stop start 10=0 30=1"},
          {"a stop forgets the rest of the last interval", "start 70=1 stop start 39=0 1=1"},
          {"a stopped timer does not fire", "start stop 100=0"},
          {"no callback changes nothing", "null 40=0 start 30=0 null 10=1"}}) {
        SCOPED_TRACE(what);
        Timer timer(40);
        std::istringstream story(told);
        for (std::string word; story >> word;) {
            if (word == "start") startCounting(timer);
            if (word == "stop") timer.stop();
            if (word == "null") timer.start(nullptr);
            int time = 0;
            int fires = 0;
            if (std::sscanf(word.c_str(), "%d=%d", &time, &fires) != 2) continue;
            EXPECT_EQ(firingsAfter(timer, std::chrono::milliseconds(time)), fires) << word;
        }
    }
}

TEST_F(TimerTest, SaysHowLongALoopMaySleepToTheNearestMillisecond) {
    EXPECT_EQ(timer_.millisecondsUntilDue(), 0U) << "not running";
    startCounting(timer_);
    for (const auto& [tenthsOfMicroseconds, milliseconds] :
         {std::pair{0, 40U}, {374'000, 3U}, {376'000, 2U}, {399'000, 1U}, {400'000, 0U}, {590'000, 0U}}) {
        clock_.setCounter(tenthsOfMicroseconds);
        EXPECT_EQ(timer_.millisecondsUntilDue(), milliseconds) << tenthsOfMicroseconds;
    }
    timer_.tick();
    EXPECT_EQ(timer_.millisecondsUntilDue(), 21U) << "19 ms are left over";
}

TEST_F(TimerTest, ACallbackMayStopOrReplaceItself) {
    for (const bool replaces : {false, true}) {
        int calls = 0;
        timer_.start(makeCallback([&] {
            replaces ? startCounting(timer_) : timer_.stop();
            ++calls;  // uses what the callback captured: it must still be alive
        }));
        EXPECT_EQ(firingsAfter(timer_, 120ms), replaces ? 2 : 0) << "the calls that remain go to the new callback";
        EXPECT_EQ(calls, 1);
        EXPECT_EQ(timer_.isRunning(), replaces);
    }
}

TEST_F(TimerTest, TheListTicksInOrderOfTheStartsAlsoWhenTimersLeaveIt) {
    std::string order;
    Timer next(40);
    Timer last(40);
    timer_.start(makeCallback([&] {
        order += "first ";
        next.stop();
        timer_.stop();
    }));
    next.start(makeCallback([&] { order += "next "; }));
    Timer(40).start(makeCallback([&] { order += "gone "; }));
    last.start(makeCallback([&] { order += "last "; }));
    clock_.advance(40ms);
    TimerList::instance().tickAll();
    EXPECT_EQ(order, "first last ");
}

}  // namespace
}  // namespace grub
