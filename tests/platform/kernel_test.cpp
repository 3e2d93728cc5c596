#include <crt.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <deque>
#include <functional>
#include <thread>
#include <vector>

#include "game_thread.h"
#include "kernel/clock.h"

// Events, waits, clocks, threads, random numbers and the end of the process.
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

TEST(Clock, CountsTenMillionTicksASecond) {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER before{};
    LARGE_INTEGER after{};
    EXPECT_TRUE(QueryPerformanceFrequency(&frequency));
    EXPECT_EQ(frequency.QuadPart, 10'000'000);
    QueryPerformanceCounter(&before);
    Sleep(20);
    QueryPerformanceCounter(&after);
    EXPECT_GE(after.QuadPart - before.QuadPart, 200'000);
}

DWORD WINAPI setFlag(LPVOID flag) {
    *static_cast<std::atomic<bool>*>(flag) = true;
    return 0;
}

TEST(Threads, RunWhenTheyAreResumed) {
    std::atomic<bool> ran{false};
    const HANDLE thread = CreateThread(nullptr, 0, setFlag, &ran, CREATE_SUSPENDED, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, 10), WAIT_TIMEOUT);
    EXPECT_FALSE(ran);
    EXPECT_TRUE(SetThreadPriority(thread, THREAD_PRIORITY_HIGHEST)) << "also where the system refuses it";
    EXPECT_EQ(ResumeThread(thread), 1U);
    EXPECT_EQ(ResumeThread(thread), 0U);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(ran);
    EXPECT_FALSE(SetEvent(thread)) << "a thread is no event";
    EXPECT_TRUE(CloseHandle(thread));
    EXPECT_EQ(ResumeThread(thread), 0xFFFFFFFFU);
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

TEST(Threads, StopAtTheirNextWaitWhenTheyAreTerminatedAtWork) {
    static std::atomic<int> stage;  // static, since the thread never ends
    const HandDrivenClock clock;
    const auto work = [](LPVOID) -> DWORD {
        for (stage = 1; stage == 1;) std::this_thread::yield();
        Sleep(1);
        stage = 3;
        return 0;
    };
    const HANDLE thread = CreateThread(nullptr, 0, work, nullptr, 0, nullptr);
    while (stage == 0) std::this_thread::yield();
    EXPECT_TRUE(TerminateThread(thread, 0));
    stage = 2;
    for (int i = 0; i < 20; ++i) Sleep(1);
    std::this_thread::sleep_for(milliseconds(20));
    EXPECT_EQ(stage, 2);
    CloseHandle(thread);
}

TEST(CriticalSections, KeepOthersOutAndLetTheirOwnerInAgain) {
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    std::atomic<bool> inside{false};
    for (int i = 0; i < 2; ++i) EnterCriticalSection(&section);
    LeaveCriticalSection(&section);
    const GameThread other([&] {
        EnterCriticalSection(&section);
        inside = true;
        LeaveCriticalSection(&section);
    });
    Sleep(10);
    EXPECT_FALSE(inside);
    LeaveCriticalSection(&section);
    other.join();
    DeleteCriticalSection(&section);
}

TEST(Random, IsTheClassicSequence) {
    crt::srand(1);
    for (const int number : {41, 18467, 6334, 26500, 19169}) EXPECT_EQ(crt::rand(), number);
    crt::srand(0);
    EXPECT_EQ(crt::rand(), 38);
}

TEST(ExitProcessDeathTest, EndsWithTheCodeAndRunsNoDestructors) {
    struct Loud {
        ~Loud() { std::fputs("destroyed", stderr); }
    };
    const auto leave = [] {
        static const Loud loud;
        std::fputs("written", stderr);
        ExitProcess(7);
    };
    EXPECT_EXIT(leave(), testing::ExitedWithCode(7), "^written$");
}

}  // namespace
