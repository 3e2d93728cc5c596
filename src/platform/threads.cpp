#include <atomic>
#include <memory>
#include <system_error>
#include <thread>

#include "faults.h"
#include "handles.h"
#include "waits.h"

namespace platform {
namespace {

/// A thread of the game; signalled when it has ended. Until it is resumed there is no thread of the system behind it,
/// so one that is never resumed leaves nothing behind.
class ThreadObject final : public Waitable {
public:
    ThreadObject(LPTHREAD_START_ROUTINE routine, LPVOID argument)
        : Waitable(true, false), routine_(routine), argument_(argument) {}

    static DWORD resume(const std::shared_ptr<ThreadObject>& thread);

private:
    void run();

    LPTHREAD_START_ROUTINE routine_;
    LPVOID argument_;
    std::atomic<bool> started_{false};
};

DWORD ThreadObject::resume(const std::shared_ptr<ThreadObject>& thread) {
    constexpr DWORD kFailed = 0xFFFFFFFFU;
    if (callFails(testing::Call::ResumeThread)) return kFailed;
    if (thread->started_.exchange(true)) return 0;
    announceParticipant();
    try {
        std::thread([thread] { thread->run(); }).detach();
    } catch (const std::system_error&) {
        leaveParticipants();
        return kFailed;
    }
    return 1;
}

void ThreadObject::run() {
    adoptParticipation();
    routine_(argument_);
    {
        const WaitGuard lock(waitLock());
        set();
    }
    leaveParticipants();
}

}  // namespace
}  // namespace platform

HANDLE CreateThread(void* /*attributes*/, std::size_t /*stackSize*/, LPTHREAD_START_ROUTINE routine, LPVOID argument,
                    DWORD flags, DWORD* /*threadId*/) {
    if (platform::callFails(platform::testing::Call::CreateThread)) return nullptr;
    const auto thread = std::make_shared<platform::ThreadObject>(routine, argument);
    if ((flags & CREATE_SUSPENDED) == 0 && platform::ThreadObject::resume(thread) != 1) return nullptr;
    return platform::newHandle(thread);
}

DWORD ResumeThread(HANDLE thread) {
    const auto object = platform::objectOf<platform::ThreadObject>(thread);
    return object ? platform::ThreadObject::resume(object) : 0xFFFFFFFFU;
}

DWORD GetCurrentThreadId() {
    static std::atomic<DWORD> last{0};
    thread_local const DWORD id = ++last;
    return id;
}
