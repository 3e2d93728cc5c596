#pragma once

#include <windows.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <string>

#include "desktop/input_map.h"
#include "desktop/presenter.h"

struct SDL_Window;

namespace platform {

struct SentCall;

/// A registered class; its windows share it.
struct WindowClass {
    WNDPROC procedure = nullptr;
    UINT style = 0;
    HICON icon = nullptr;
};

/// A window between CreateWindowExA and DestroyWindow, and the messages on their way to it.
struct Window {
    HWND handle = nullptr;
    DWORD owner = 0;  // id of the thread that created it
    std::shared_ptr<WindowClass> windowClass;
    CREATESTRUCTA creation{};

    // Guarded by the wait lock.
    bool alive = true;
    std::deque<SentCall*> sent;
    std::deque<MSG> posted;  // by threads and by the player, in the order they came
    bool needsPaint = false;
    bool frameArrived = false;
    LONG_PTR userData = 0;

    Presenter presenter;  // locks for itself

    // Used by the owner only; the wait lock guards changes of the last three.
    SDL_Window* system = nullptr;
    KeyboardMap keys;
    bool fullScreen = false;
    int windowedX = 0;  // where the client area goes back to from full screen
    int windowedY = 0;
    PictureSize windowedSize{};
};

/// The living window behind a handle; null when it is gone.
[[nodiscard]] std::shared_ptr<Window> windowOf(HWND handle);
/// The calling thread's window; null when it has none. A thread has at most one, as the game does.
[[nodiscard]] std::shared_ptr<Window> ownWindow();
/// The living window that SDL knows by this number; null when it is gone.
[[nodiscard]] std::shared_ptr<Window> windowOfSystem(std::uint32_t systemId);

/// Runs the window's procedure; the owner only.
LRESULT callProcedure(const Window& window, UINT message, WPARAM wParam, LPARAM lParam);
/// The size of the client area while the window is not full screen; 0 x 0 when the window is gone. Any thread.
[[nodiscard]] PictureSize pictureSize(HWND window);

/// Fills the desktop with the picture, or goes back to the size that the window had before. Any thread; waits until it
/// is done. True at once when the window is in that mode. False when the window is gone or the system refuses; then the
/// window keeps its place and size.
bool setFullScreen(HWND window, bool fullScreen);

}  // namespace platform
