#pragma once

#include <windows.h>

#include <cstdint>

namespace grub {

class Application;

/// Posted by the game thread as its last act: the window is to be destroyed.
inline constexpr UINT kDestroyWindowMessage = WM_USER + 1;

/// Name of the window class, registered once for the process.
inline constexpr const char* kWindowClassName = "NimboEngineWindowClass";

/// What the window is to be. Sizes in pixels of the picture, without the frame.
struct GameWindowWish {
    HINSTANCE instance;
    HICON icon;
    const char* title;
    std::int32_t width;
    std::int32_t height;
    bool windowed;
};

/// A rectangle on the screen in pixels, with the styles that make its frame.
struct WindowPlacement {
    DWORD extendedStyle;
    DWORD style;
    int x;
    int y;
    int width;
    int height;
};

/// Full screen: the picture at the top left, on top of everything. Windowed: a caption and a thin frame around the
/// picture; the place is centred by the picture's size, so the frame sits a little below and right of the centre.
[[nodiscard]] WindowPlacement placementFor(const GameWindowWish& wish);

/// Registers the class on first use and creates the hidden window, whose WM_CREATE carries `owner`. Null when the
/// system refused either.
[[nodiscard]] HWND createGameWindow(const GameWindowWish& wish, Application& owner);

/// Hands messages to the window procedures of this thread until the quit message; false when reading failed.
bool pumpMessages();

/// Cuts the window off from its application, which is about to die, and destroys it if it is still there.
void forgetGameWindow(HWND window);

/// Whether the program starts in a window. A capital F anywhere in the command line asks for the full screen. Where the
/// player's settings exist in the registry they decide instead, and the full-screen one is used up: it is written back
/// as off, so that a full screen that cannot be left is not met twice. The menu writes it again.
[[nodiscard]] bool startsWindowed(const char* commandLine);

}  // namespace grub
