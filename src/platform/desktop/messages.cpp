#include "desktop/messages.h"

#include <utility>

#include "desktop/system_events.h"
#include "desktop/window.h"
#include "kernel/clock.h"

namespace platform {
namespace {

/// The longest wait of GetMessageA, in case the system swallows a wake-up.
constexpr int kLongestWaitMs = 50;

/// Set by PostQuitMessage, taken by GetMessageA. Belongs to the thread, since its window may be gone.
thread_local bool quitPosted = false;
thread_local int quitCode = 0;

bool hasWork(const Window& window) { return !window.sent.empty() || window.frameArrived; }

void makeOneSentCall(Window& window, WaitGuard& lock) {
    auto* call = window.sent.front();
    window.sent.pop_front();
    lock.unlock();
    const LRESULT result = (*call->work)();
    lock.lock();
    call->result = result;
    call->done = true;
    releaseAll(call);
}

void showFrame(Window& window, WaitGuard& lock) {
    window.frameArrived = false;
    lock.unlock();
    if (window.system != nullptr) window.presenter.showFresh(*window.system);
    lock.lock();
}

/// Takes a posted message, else the quit message, else a paint message. False when there is no message.
bool takeMessage(MSG& message, Window* window) {
    const WaitGuard lock(waitLock());
    if (window != nullptr && !window->posted.empty()) {
        message = window->posted.front();
        window->posted.pop_front();
        return true;
    }
    message = MSG{};
    if (std::exchange(quitPosted, false)) {
        message.message = WM_QUIT;
        message.wParam = static_cast<WPARAM>(quitCode);
        return true;
    }
    if (window == nullptr || !window->alive || !window->needsPaint) return false;
    message.hwnd = window->handle;
    message.message = WM_PAINT;
    return true;
}

/// Waits until there may be something for the window. Under the hand-driven clock this is a wait like any other; else
/// SDL waits, and is woken when another thread has something.
void waitForWork(Window& window) {
    if (!handClock().inUse) {
        takeSystemEvents(kLongestWaitMs);
        return;
    }
    WaitGuard lock(waitLock());
    if (hasWork(window) || !window.posted.empty()) return;
    Wait wait(nullptr, kNever);
    wait.sleep(lock);
}

}  // namespace

void serveOwnWindows(WaitGuard& lock) {
    lock.unlock();
    const auto window = ownWindow();
    lock.lock();
    if (!window) return;
    for (auto calls = window->sent.size(); calls > 0 && !window->sent.empty(); --calls) makeOneSentCall(*window, lock);
    if (window->alive && window->frameArrived) showFrame(*window, lock);
}

void wakeOwner(Window& window) {
    callThread(window.owner);
    if (!handClock().inUse) wakeSystemWait();
}

LRESULT callOwner(const std::shared_ptr<Window>& window, const std::function<LRESULT()>& work) {
    if (window->owner == GetCurrentThreadId()) return work();
    WaitGuard lock(waitLock());
    if (!window->alive) return 0;
    SentCall call{&work};
    window->sent.push_back(&call);
    wakeOwner(*window);
    sleepServing(lock, &call, kNever);
    return call.result;
}

bool post(Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    const WaitGuard lock(waitLock());
    if (!window.alive) return false;
    const auto time = static_cast<DWORD>(clockNow() / kTicksPerMillisecond);
    window.posted.push_back({window.handle, message, wParam, lParam, time, {}});
    wakeOwner(window);
    return true;
}

}  // namespace platform

BOOL GetMessageA(MSG* message, HWND /*window*/, UINT /*first*/, UINT /*last*/) {
    for (;;) {
        if (platform::ownWindow()) platform::takeSystemEvents(0);
        {
            platform::WaitGuard lock(platform::waitLock());
            platform::serveOwnWindows(lock);
        }
        const auto window = platform::ownWindow();  // a served call may have destroyed it
        if (platform::takeMessage(*message, window.get())) return message->message == WM_QUIT ? 0 : 1;
        if (!window) return -1;
        platform::waitForWork(*window);
    }
}

LRESULT DispatchMessageA(const MSG* message) {
    const auto window = platform::windowOf(message->hwnd);
    return window ? platform::callProcedure(*window, message->message, message->wParam, message->lParam) : 0;
}

BOOL PostMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto window = platform::windowOf(handle);
    return window && platform::post(*window, message, wParam, lParam) ? TRUE : FALSE;
}

LRESULT SendMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto window = platform::windowOf(handle);
    if (!window) return 0;
    return platform::callOwner(window, [&] { return platform::callProcedure(*window, message, wParam, lParam); });
}

void PostQuitMessage(int exitCode) {
    platform::quitCode = exitCode;
    platform::quitPosted = true;
}

LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    constexpr WPARAM kF4 = 0x73;
    if (message == WM_SYSKEYDOWN && wParam == kF4) SendMessageA(window, WM_CLOSE, 0, 0);
    if (message == WM_CLOSE) DestroyWindow(window);
    if (message == WM_PAINT) ValidateRect(window, nullptr);
    return 0;
}

BOOL GetUpdateRect(HWND handle, RECT* rect, BOOL /*erase*/) {
    const auto window = platform::windowOf(handle);
    if (!window) return FALSE;
    const platform::WaitGuard lock(platform::waitLock());
    if (rect != nullptr) *rect = {0, 0, window->windowedSize.width, window->windowedSize.height};
    return window->needsPaint ? TRUE : FALSE;
}

BOOL ValidateRect(HWND handle, const RECT* /*rect*/) {
    const auto window = platform::windowOf(handle);
    if (!window) return FALSE;
    const platform::WaitGuard lock(platform::waitLock());
    window->needsPaint = false;
    return TRUE;
}
