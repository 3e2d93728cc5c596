#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "kernel/waits.h"

/// How threads reach the thread that owns a window: calls that it makes for them, and posted messages.
namespace platform {

struct Window;

/// A call that another thread wants the owner of a window to make. It lies on the sender's stack until it is done.
struct SentCall {
    const std::function<LRESULT()>* work;
    LRESULT result = 0;
    bool done = false;
};

/// Runs `work` on the thread that owns the window and returns its result; at once when that is the calling thread.
/// 0 when the window is gone, also when it is destroyed while the call waits.
LRESULT callOwner(const std::shared_ptr<Window>& window, const std::function<LRESULT()>& work);
/// Queues a message for the window. False when it is gone.
bool post(Window& window, UINT message, WPARAM wParam, LPARAM lParam);
/// Ends the present wait of the owner, because it has something to do. Under the wait lock.
void wakeOwner(Window& window);

/// For the calling thread's window: makes the calls that other threads have sent and shows the picture that has
/// arrived. It takes only those that are there now, so that posted messages and ended waits get their turn even if a
/// sender never pauses. Called and returns with the wait lock held, but lets go of it meanwhile.
void serveOwnWindows(WaitGuard& lock);

}  // namespace platform
