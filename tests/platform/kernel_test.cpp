#include <crt.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <deque>
#include <functional>
#include <vector>

#include "game_thread.h"
#include "kernel/clock.h"

// Events, waits, the clock, terminated threads and random numbers.
namespace {

using platform::HandDrivenClock;
using std::chrono::milliseconds;

TEST(Events, StayOrFallBackAsTheyWereMade) {
    for (const bool manualReset : {true, false}) {
        SCOPED_TRACE(manualReset ? "manual" : "auto");
        const ScopedEvent event(manualReset, true);
        EXPECT_EQ(WaitForSingleObject(event.handle, 0), WAIT_OBJECT_0);
        EXPECT_EQ(WaitForSingleObject(event.handle, 1), manualReset ? WAIT_OBJECT_0 : WAIT_TIMEOUT);
        SetEvent(event.handle);
        ResetEvent(event.handle);
        EXPECT_EQ(WaitForSingleObject(event.handle, 0), WAIT_TIMEOUT);
    }
}

/// Three threads begin to wait one after the other, then `act` gets their event. Returns the numbers, from 0, of the
/// threads that it released.
std::vector<int> releasedBy(bool manualReset, const std::function<void(HANDLE)>& act) {
    const HandDrivenClock clock(HandDrivenClock::Moves::ByHand);
    const ScopedEvent end(true);
    const ScopedEvent event(manualReset);
    const HANDLE both[]{end.handle, event.handle};
    std::array<std::atomic<DWORD>, 3> answers{};
    std::deque<GameThread> threads;
    for (auto& answer : answers) {
        threads.emplace_back([&] { answer = WaitForMultipleObjects(2, both, FALSE, INFINITE); });
        clock.settle();
    }
    act(event.handle);
    clock.settle();
    std::vector<int> released;
    for (int i = 0; i < 3; ++i) {
        if (answers[static_cast<std::size_t>(i)] == WAIT_OBJECT_0 + 1) released.push_back(i);
    }
    SetEvent(end.handle);
    return released;
}

TEST(Events, ReleaseTheOldestWaitOrAllOfThemEvenWhenResetAtOnce) {
    const auto set = [](HANDLE event) { SetEvent(event); };
    const auto pulse = [](HANDLE event) { SetEvent(event), ResetEvent(event); };
    EXPECT_EQ(releasedBy(false, set), (std::vector<int>{0}));
    EXPECT_EQ(releasedBy(false, pulse), (std::vector<int>{0}));
    EXPECT_EQ(releasedBy(true, pulse), (std::vector<int>{0, 1, 2}));
}

TEST(Waits, ForSeveralTakeTheFirstThatIsReadyAndLeaveTheOthers) {
    const ScopedEvent first;
    const ScopedEvent second(false, true);
    const ScopedEvent third(false, true);
    const HANDLE all[]{first.handle, second.handle, third.handle};
    for (const DWORD answer : {WAIT_OBJECT_0 + 1, WAIT_OBJECT_0 + 2, WAIT_TIMEOUT}) {
        EXPECT_EQ(WaitForMultipleObjects(3, all, FALSE, 2), answer);
    }
}

TEST(Waits, LetTheClockJumpOnceEveryThreadWaits) {
    const HandDrivenClock clock;
    std::vector<int> order;
    const auto sleep = [&](DWORD time) {
        Sleep(time);
        order.push_back(static_cast<int>(clock.now().count()));
    };
    const GameThread slow([&] { sleep(30), sleep(40); });
    sleep(50);
    slow.join();
    EXPECT_EQ(order, (std::vector<int>{30, 50, 70}));
}

TEST(Threads, StopForEverWhereTheyWaitWhenTheyAreTerminated) {
    const HandDrivenClock clock;
    const ScopedEvent event;
    const auto waitFor = [](LPVOID object) { return WaitForSingleObject(object, INFINITE); };
    const HANDLE waiting = CreateThread(nullptr, 0, waitFor, event.handle, 0, nullptr);
    clock.settle();
    EXPECT_TRUE(TerminateThread(waiting, 0));
    EXPECT_EQ(WaitForSingleObject(waiting, 0), WAIT_OBJECT_0) << "it counts as ended";
    SetEvent(event.handle);
    EXPECT_EQ(WaitForSingleObject(event.handle, 0), WAIT_OBJECT_0) << "the signal is still there";
    Sleep(5);
    EXPECT_EQ(clock.now(), milliseconds(5)) << "the clock no longer waits for it";
    CloseHandle(waiting);
}

TEST(Random, IsTheClassicSequence) {
    crt::srand(1);
    for (const int number : {41, 18467, 6334, 26500, 19169}) EXPECT_EQ(crt::rand(), number);
    crt::srand(0);
    EXPECT_EQ(crt::rand(), 38);
}

}  // namespace
