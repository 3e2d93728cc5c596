#pragma once

#include <windows.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "keyboard_map.h"
#include "presenter.h"
#include "waits.h"

struct SDL_Window;

namespace platform {

/// What CreateWindowExA needs of a registered class; shared by its windows.
struct WindowClass {
    WNDPROC procedure = nullptr;
    UINT style = 0;
    HICON icon = nullptr;
};

/// A call that another thread wants the owner of a window to make. It lies on the sender's stack until it is done.
struct SentCall {
    const std::function<LRESULT()>* work;
    LRESULT result = 0;
    bool done = false;
};

/// A window between CreateWindowExA and DestroyWindow, and the messages on their way to it.
struct Window {
    HWND handle = nullptr;
    DWORD owner = 0;  // id of the thread that created it
    std::shared_ptr<WindowClass> windowClass;
    CREATESTRUCTA creation{};

    /// Guarded by the wait lock.
    bool alive = true;
    std::deque<SentCall*> sent;
    std::deque<MSG> posted;  // by threads and by the player, in the order they came
    bool needsPaint = false;
    bool frameArrived = false;
    LONG_PTR userData = 0;

    Presenter presenter;  // locks for itself

    /// Used by the owner only.
    SDL_Window* system = nullptr;
    KeyboardMap keys;
    bool fullScreen = false;
    int windowedX = 0;  // place and size to go back to from full screen
    int windowedY = 0;
    int windowedWidth = 0;
    int windowedHeight = 0;
};

/// The living window behind a handle; null when it is gone.
[[nodiscard]] std::shared_ptr<Window> windowOf(HWND handle);
/// The calling thread's window; null when it has none. A thread has at most one, as the game does.
[[nodiscard]] std::shared_ptr<Window> ownWindow();
/// The living window that SDL knows by this number; null when it is gone.
[[nodiscard]] std::shared_ptr<Window> windowOfSystem(std::uint32_t systemId);

/// Runs `work` on the thread that owns the window and returns its result; at once when that is the calling thread.
/// 0 when the window is gone, also when it goes while the call waits.
LRESULT callOwner(const std::shared_ptr<Window>& window, const std::function<LRESULT()>& work);
/// Queues a message for the window. False when it is gone.
bool post(Window& window, UINT message, WPARAM wParam, LPARAM lParam);
/// Runs the window's procedure; the owner only.
LRESULT callProcedure(const Window& window, UINT message, WPARAM wParam, LPARAM lParam);
/// Tells the owner that there is something to do, wherever it waits. Under the wait lock.
void wakeOwner(Window& window);

/// Makes the sent calls and shows the picture that have arrived for the calling thread's window: only those that are
/// there now, so that senders who never pause cannot keep posted messages and ended waits from their turn. Called and
/// returns with the wait lock held, but lets go of it meanwhile.
void serveOwnWindows(WaitGuard& lock);

/// Turns what SDL has to report into messages of the windows. With `waitLimit` (milliseconds) above 0 it first waits
/// that long for something to report or for wakeSystemWait.
void takeSystemEvents(int waitLimit);
/// Ends takeSystemEvents' wait. Any thread.
void wakeSystemWait();

/// Shows a class's icon on a window; the owner only.
void showIcon(Window& window);

}  // namespace platform
