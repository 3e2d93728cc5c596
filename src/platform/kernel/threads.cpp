#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <memory>
#include <system_error>
#include <thread>

#include "kernel/calls.h"
#include "kernel/events.h"
#include "kernel/waits.h"

namespace platform {
namespace {

/// A thread of the game; signalled when it has ended. The system's thread is made when it is resumed, so a thread that
/// is never resumed leaves nothing behind.
class ThreadObject final : public Waitable {
public:
    ThreadObject(LPTHREAD_START_ROUTINE routine, LPVOID argument)
        : Waitable(true, false), routine_(routine), argument_(argument) {}

    static DWORD resume(const std::shared_ptr<ThreadObject>& thread);
    /// Counts as ended from now on. Under the wait lock.
    void terminate();
    /// Asks the system for a place before others; it may refuse. Under the wait lock.
    void setPriority(int priority);

private:
    void run();
    bool begin();

    LPTHREAD_START_ROUTINE routine_;
    LPVOID argument_;
    std::atomic<bool> started_{false};
    // Guarded by the wait lock; the numbers are 0 until the thread runs.
    bool terminated_ = false;
    int priority_ = 0;
    DWORD number_ = 0;
    ::pid_t systemNumber_ = 0;
};

DWORD ThreadObject::resume(const std::shared_ptr<ThreadObject>& thread) {
    constexpr DWORD kFailed = 0xFFFFFFFFU;
    if (isRefused(Call::ResumeThread)) return kFailed;
    if (thread->started_.exchange(true)) return 0;
    announceParticipant();
    try {
        std::thread([thread] { thread->run(); }).detach();
    } catch (const std::system_error&) {
        withdrawParticipant();
        return kFailed;
    }
    return 1;
}

void ThreadObject::run() {
    adoptParticipation();
    if (begin()) routine_(argument_);
    {
        const WaitGuard lock(waitLock());
        set();
    }
    leaveParticipants();
}

/// False when the thread was terminated before it ran.
bool ThreadObject::begin() {
    const WaitGuard lock(waitLock());
    number_ = GetCurrentThreadId();
    systemNumber_ = ::gettid();
    if (priority_ != 0) setPriority(priority_);
    return !terminated_;
}

void ThreadObject::terminate() {
    started_ = true;  // a thread that waits for ResumeThread never runs
    terminated_ = true;
    if (number_ != 0 && !isSet()) abandonThread(number_);
    set();
}

void ThreadObject::setPriority(int priority) {
    constexpr int kNicenessOfOneStep = -5;
    priority_ = priority;
    if (systemNumber_ == 0 || isSet()) return;
    // Linux keeps a niceness for each thread. Without the privilege the call fails and the thread stays as it is.
    ::setpriority(PRIO_PROCESS, static_cast<::id_t>(systemNumber_), priority * kNicenessOfOneStep);
}

}  // namespace
}  // namespace platform

HANDLE CreateThread(void* /*attributes*/, std::size_t /*stackSize*/, LPTHREAD_START_ROUTINE routine, LPVOID argument,
                    DWORD flags, DWORD* /*threadId*/) {
    if (platform::isRefused(platform::Call::CreateThread)) return nullptr;
    const auto thread = std::make_shared<platform::ThreadObject>(routine, argument);
    if ((flags & CREATE_SUSPENDED) == 0 && platform::ThreadObject::resume(thread) != 1) return nullptr;
    return platform::newHandle(thread);
}

DWORD ResumeThread(HANDLE thread) {
    const auto object = platform::objectOf<platform::ThreadObject>(thread);
    return object ? platform::ThreadObject::resume(object) : 0xFFFFFFFFU;
}

BOOL SetThreadPriority(HANDLE thread, int priority) {
    const auto object = platform::objectOf<platform::ThreadObject>(thread);
    if (!object) return FALSE;
    const platform::WaitGuard lock(platform::waitLock());
    object->setPriority(priority);
    return TRUE;
}

BOOL TerminateThread(HANDLE thread, DWORD /*exitCode*/) {
    const auto object = platform::objectOf<platform::ThreadObject>(thread);
    if (!object) return FALSE;
    const platform::WaitGuard lock(platform::waitLock());
    object->terminate();
    return TRUE;
}

DWORD GetCurrentThreadId() {
    static std::atomic<DWORD> last{0};
    thread_local const DWORD id = ++last;
    return id;
}
