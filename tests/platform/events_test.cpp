#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <thread>
#include <vector>

#include "control/call_controls.h"
#include "control/testing.h"
#include "game_thread.h"

namespace {

using platform::testing::Call;
using platform::testing::FailingCall;
using platform::testing::HandDrivenClock;
using std::chrono::milliseconds;

struct ScopedEvent {
    ScopedEvent(bool manualReset, bool initiallySet)
        : handle(CreateEventA(nullptr, manualReset ? TRUE : FALSE, initiallySet ? TRUE : FALSE, nullptr)) {}
    ~ScopedEvent() { CloseHandle(handle); }
    ScopedEvent(const ScopedEvent&) = delete;
    ScopedEvent& operator=(const ScopedEvent&) = delete;
    HANDLE handle;
};

DWORD WINAPI setFlag(LPVOID flag) {
    *static_cast<std::atomic<bool>*>(flag) = true;
    return 0;
}

DWORD WINAPI waitFor(LPVOID event) { return WaitForSingleObject(event, INFINITE); }

TEST(Events, StayOrFallBackAsTheyWereMade) {
    struct Row {
        const char* what;
        bool manualReset, initiallySet;
        DWORD firstWait, secondWait;
    };
    for (const auto& row : {
             Row{"manual, set", true, true, WAIT_OBJECT_0, WAIT_OBJECT_0},
             Row{"manual, not set", true, false, WAIT_TIMEOUT, WAIT_TIMEOUT},
             Row{"auto, set", false, true, WAIT_OBJECT_0, WAIT_TIMEOUT},
             Row{"auto, not set", false, false, WAIT_TIMEOUT, WAIT_TIMEOUT},
         }) {
        const ScopedEvent event(row.manualReset, row.initiallySet);
        EXPECT_EQ(WaitForSingleObject(event.handle, 0), row.firstWait) << row.what;
        EXPECT_EQ(WaitForSingleObject(event.handle, 1), row.secondWait) << row.what;
        EXPECT_TRUE(SetEvent(event.handle)) << row.what;
        EXPECT_EQ(WaitForSingleObject(event.handle, 0), WAIT_OBJECT_0) << row.what;
        EXPECT_TRUE(ResetEvent(event.handle)) << row.what;
        EXPECT_EQ(WaitForSingleObject(event.handle, 0), WAIT_TIMEOUT) << row.what;
    }
}

TEST(Events, RefuseHandlesThatAreNone) {
    const HANDLE closed = CreateEventA(nullptr, TRUE, TRUE, nullptr);
    EXPECT_TRUE(CloseHandle(closed));
    const GameThread thread([] {});
    for (const HANDLE none : {HANDLE{nullptr}, INVALID_HANDLE_VALUE, closed}) {
        EXPECT_FALSE(SetEvent(none));
        EXPECT_FALSE(CloseHandle(none));
        EXPECT_EQ(WaitForSingleObject(none, INFINITE), WAIT_FAILED);
    }
}

/// Lets `count` threads wait for an event and does `act` when all of them do; how many have been released after it.
int releasedBy(bool manualReset, int count, const std::function<void(HANDLE)>& act) {
    const HandDrivenClock clock(HandDrivenClock::Moves::ByHand);
    const ScopedEvent event(manualReset, false);
    const ScopedEvent end(true, false);
    std::atomic<int> released{0};
    std::deque<GameThread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&] {
            WaitForSingleObject(event.handle, INFINITE);
            ++released;
            WaitForSingleObject(end.handle, INFINITE);
        });
    }
    clock.settle();
    act(event.handle);
    clock.settle();
    const int result = released;
    for (int i = 0; i < count; ++i) SetEvent(event.handle), clock.settle();
    SetEvent(end.handle);
    return result;
}

TEST(Events, AutoResetReleasesOneWaitAndManualResetAll) {
    EXPECT_EQ(releasedBy(false, 3, SetEvent), 1);
    EXPECT_EQ(releasedBy(true, 3, SetEvent), 3);
}

TEST(Events, ReleaseWhoWaitsEvenWhenResetAtOnce) {
    const auto pulse = [](HANDLE event) {
        SetEvent(event);
        ResetEvent(event);
    };
    EXPECT_EQ(releasedBy(true, 3, pulse), 3);
    EXPECT_EQ(releasedBy(false, 3, pulse), 1);
}

TEST(Waits, EndWhenTheHandDrivenClockReachesTheirTime) {
    HandDrivenClock clock(HandDrivenClock::Moves::ByHand);
    const ScopedEvent never(true, false);
    DWORD ended = WAIT_FAILED;
    const GameThread thread([&] { ended = WaitForSingleObject(never.handle, 100); });
    clock.settle();
    clock.advance(milliseconds(99));
    clock.settle();
    EXPECT_FALSE(thread.hasEnded());
    clock.advance(milliseconds(1));
    thread.join();
    EXPECT_EQ(ended, WAIT_TIMEOUT);
}

TEST(Waits, LetTheClockJumpOnceEveryoneWaits) {
    const HandDrivenClock clock;
    std::vector<int> order;
    const GameThread slow([&] {
        Sleep(30);
        order.push_back(static_cast<int>(clock.now().count()));
        Sleep(40);
        order.push_back(static_cast<int>(clock.now().count()));
    });
    Sleep(50);
    order.push_back(static_cast<int>(clock.now().count()));
    slow.join();
    EXPECT_EQ(order, (std::vector<int>{30, 50, 70}));
}

TEST(Waits, KeepTheClockStillWhileAThreadWorks) {
    const HandDrivenClock clock;
    std::atomic<bool> release{false};
    std::atomic<std::int64_t> seen{-1};
    const GameThread busy([&] {
        while (!release) std::this_thread::yield();
        seen = clock.now().count();
    });
    const GameThread sleeper([] { Sleep(5); });
    release = true;
    busy.join();
    sleeper.join();
    EXPECT_EQ(seen, 0) << "five milliseconds passed although a thread was not waiting";
    EXPECT_EQ(clock.now(), milliseconds(5));
}

/// What WaitForMultipleObjects answers at once.
DWORD waitNow(const std::vector<HANDLE>& handles) {
    return WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(), FALSE, 0);
}

TEST(WaitsForSeveral, TakeTheFirstThatIsReadyAndLeaveTheOthers) {
    const ScopedEvent first(false, false);
    const ScopedEvent second(false, true);
    const ScopedEvent third(false, true);
    const std::vector<HANDLE> all{first.handle, second.handle, third.handle};
    EXPECT_EQ(waitNow(all), WAIT_OBJECT_0 + 1);
    EXPECT_EQ(waitNow(all), WAIT_OBJECT_0 + 2);
    EXPECT_EQ(waitNow(all), WAIT_TIMEOUT);
    EXPECT_EQ(WaitForMultipleObjects(3, all.data(), FALSE, 2), WAIT_TIMEOUT);
}

TEST(WaitsForSeveral, RefuseCountsAndHandlesThatAreNone) {
    const ScopedEvent event(true, true);
    EXPECT_EQ(waitNow(std::vector<HANDLE>(64, event.handle)), WAIT_OBJECT_0);
    EXPECT_EQ(waitNow(std::vector<HANDLE>(65, event.handle)), WAIT_FAILED);
    EXPECT_EQ(waitNow({}), WAIT_FAILED);
    EXPECT_EQ(WaitForMultipleObjects(1, nullptr, FALSE, INFINITE), WAIT_FAILED);
    EXPECT_EQ(waitNow({event.handle, nullptr}), WAIT_FAILED);
}

TEST(WaitsForSeveral, SleepUntilOneIsSet) {
    for (const std::size_t index : {0U, 1U, 16U}) {
        const HandDrivenClock clock(HandDrivenClock::Moves::ByHand);
        std::deque<ScopedEvent> events;
        std::array<HANDLE, 17> handles{};
        for (HANDLE& handle : handles) handle = events.emplace_back(&handle == &handles.back(), false).handle;
        std::atomic<DWORD> first{WAIT_FAILED};
        std::atomic<DWORD> second{WAIT_FAILED};
        const GameThread one([&] { first = WaitForMultipleObjects(17, handles.data(), FALSE, INFINITE); });
        clock.settle();
        const GameThread two([&] { second = WaitForMultipleObjects(17, handles.data(), FALSE, INFINITE); });
        clock.settle();
        SetEvent(handles[index]);
        clock.settle();
        EXPECT_EQ(first, WAIT_OBJECT_0 + index) << "the older wait";
        EXPECT_EQ(second, index == 16 ? WAIT_OBJECT_0 + 16 : WAIT_FAILED) << "a manual event ends both";
        SetEvent(handles[16]);
    }
}

TEST(WaitsForSeveral, EndWithTheThreadsThatTheyWaitFor) {
    const ScopedEvent go(true, false);
    const HANDLE threads[]{CreateThread(nullptr, 0, waitFor, go.handle, 0, nullptr),
                           CreateThread(nullptr, 0, waitFor, go.handle, 0, nullptr)};
    EXPECT_EQ(WaitForMultipleObjects(2, threads, FALSE, 2), WAIT_TIMEOUT);
    SetEvent(go.handle);
    EXPECT_LT(WaitForMultipleObjects(2, threads, FALSE, INFINITE), WAIT_OBJECT_0 + 2);
    for (const HANDLE thread : threads) EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    for (const HANDLE thread : threads) CloseHandle(thread);
}

TEST(Clock, CountsTenMillionTicksASecondAndNeverGoesBack) {
    LARGE_INTEGER frequency{};
    EXPECT_TRUE(QueryPerformanceFrequency(&frequency));
    EXPECT_EQ(frequency.QuadPart, 10'000'000);
    LARGE_INTEGER before{};
    LARGE_INTEGER after{};
    QueryPerformanceCounter(&before);
    Sleep(20);
    QueryPerformanceCounter(&after);
    EXPECT_GE(after.QuadPart - before.QuadPart, 200'000);
}

TEST(Clock, ReadsWhatTestsWant) {
    HandDrivenClock clock;
    LARGE_INTEGER counter{};
    clock.setFrequency(3'579'545);
    clock.setCounter(4'294'967'291);
    Sleep(1000);
    QueryPerformanceCounter(&counter);
    EXPECT_EQ(counter.QuadPart, 4'294'967'291 + 3'579'545);
    clock.addAtEachReading(7);
    QueryPerformanceCounter(&counter);
    QueryPerformanceCounter(&counter);
    EXPECT_EQ(counter.QuadPart, 4'294'967'291 + 3'579'545 + 7);
}

TEST(Threads, StopForEverWhereTheyWaitWhenTheyAreTerminated) {
    const HandDrivenClock clock;
    const ScopedEvent event(false, false);
    const HANDLE waiting = CreateThread(nullptr, 0, waitFor, event.handle, 0, nullptr);
    clock.settle();
    EXPECT_TRUE(TerminateThread(waiting, 0xFFFFFFFFU));
    EXPECT_EQ(WaitForSingleObject(waiting, 0), WAIT_OBJECT_0) << "it counts as ended";
    SetEvent(event.handle);
    EXPECT_EQ(WaitForSingleObject(event.handle, 0), WAIT_OBJECT_0) << "nobody took the signal";
    Sleep(5);
    EXPECT_EQ(clock.now(), milliseconds(5)) << "the clock no longer waits for it";
    std::atomic<bool> ran{false};
    const HANDLE suspended = CreateThread(nullptr, 0, setFlag, &ran, CREATE_SUSPENDED, nullptr);
    EXPECT_TRUE(TerminateThread(suspended, 0));
    EXPECT_EQ(ResumeThread(suspended), 0U);
    EXPECT_EQ(WaitForSingleObject(suspended, INFINITE), WAIT_OBJECT_0);
    EXPECT_FALSE(ran);
    EXPECT_FALSE(TerminateThread(event.handle, 0));
    CloseHandle(waiting);
    CloseHandle(suspended);
}

TEST(Threads, StopAtTheirNextWaitWhenTheyAreTerminatedAtWork) {
    struct Work {
        std::atomic<bool> begun{false}, goOn{false}, slept{false};
    };
    static Work work;  // the thread never ends
    const HandDrivenClock clock;
    const auto run = [](LPVOID) -> DWORD {
        work.begun = true;
        while (!work.goOn) std::this_thread::yield();
        Sleep(1);
        work.slept = true;
        return 0;
    };
    const HANDLE thread = CreateThread(nullptr, 0, run, nullptr, 0, nullptr);
    while (!work.begun) std::this_thread::yield();
    EXPECT_TRUE(TerminateThread(thread, 0));
    work.goOn = true;
    for (int i = 0; i < 20; ++i) Sleep(1);
    std::this_thread::sleep_for(milliseconds(20));
    EXPECT_FALSE(work.slept);
    CloseHandle(thread);
}

TEST(Threads, AreAskedForInAnOrderThatTheSystemMayRefuse) {
    const ScopedEvent go(true, false);
    const HANDLE thread = CreateThread(nullptr, 0, waitFor, go.handle, 0, nullptr);
    EXPECT_TRUE(SetThreadPriority(thread, THREAD_PRIORITY_HIGHEST));
    SetEvent(go.handle);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(SetThreadPriority(thread, THREAD_PRIORITY_HIGHEST));
    CloseHandle(thread);
    EXPECT_FALSE(SetThreadPriority(thread, THREAD_PRIORITY_HIGHEST));
    EXPECT_FALSE(SetThreadPriority(go.handle, THREAD_PRIORITY_HIGHEST));
}

TEST(Threads, StartSuspendedAndReportTheirSuspendCount) {
    std::atomic<bool> ran{false};
    const HANDLE thread = CreateThread(nullptr, 0, setFlag, &ran, CREATE_SUSPENDED, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, 10), WAIT_TIMEOUT);
    EXPECT_FALSE(ran);
    EXPECT_EQ(ResumeThread(thread), 1U);
    EXPECT_EQ(ResumeThread(thread), 0U);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(ran);
    EXPECT_FALSE(SetEvent(thread)) << "a thread is no event";
    CloseHandle(thread);
    EXPECT_EQ(ResumeThread(thread), 0xFFFFFFFFU);
}

TEST(Threads, MayBeGivenUpBeforeTheyEverRan) {
    std::atomic<bool> ran{false};
    const HANDLE thread = CreateThread(nullptr, 0, setFlag, &ran, CREATE_SUSPENDED, nullptr);
    EXPECT_TRUE(CloseHandle(thread));
    EXPECT_FALSE(ran);
}

TEST(Threads, FailWhereATestWantsIt) {
    std::atomic<bool> ran{false};
    const FailingCall afterOne(Call::CreateThread, 1);
    const HANDLE thread = CreateThread(nullptr, 0, setFlag, &ran, CREATE_SUSPENDED, nullptr);
    EXPECT_NE(thread, nullptr);
    EXPECT_EQ(CreateThread(nullptr, 0, setFlag, &ran, CREATE_SUSPENDED, nullptr), nullptr);
    const FailingCall never(Call::ResumeThread);
    EXPECT_EQ(ResumeThread(thread), 0xFFFFFFFFU);
    CloseHandle(thread);
}

TEST(Threads, HaveNumbersOfTheirOwn) {
    DWORD other = 0;
    const GameThread thread([&] { other = GetCurrentThreadId(); });
    thread.join();
    EXPECT_NE(other, GetCurrentThreadId());
    EXPECT_NE(other, 0U);
}

TEST(CriticalSections, KeepOthersOutAndLetTheirOwnerInAgain) {
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    int counter = 0;
    const auto count = [&] {
        for (int i = 0; i < 1000; ++i) {
            EnterCriticalSection(&section);
            EnterCriticalSection(&section);
            ++counter;
            LeaveCriticalSection(&section);
            LeaveCriticalSection(&section);
        }
    };
    {
        const GameThread first(count);
        const GameThread second(count);
    }
    EXPECT_EQ(counter, 2000);
    DeleteCriticalSection(&section);
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
