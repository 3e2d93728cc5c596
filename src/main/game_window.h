#pragma once

#include <windows.h>

#include <cstdint>

namespace grub {

class Application;

/// The game thread posts this message as its last act; the window then destroys itself.
inline constexpr UINT kDestroyWindowMessage = WM_USER + 1;

/// Name of the window class. The process registers it once.
inline constexpr const char* kWindowClassName = "NimboEngineWindowClass";

/// The window that the game wants. Sizes in pixels of the picture, without the frame.
struct GameWindowWish {
    HINSTANCE instance;
    HICON icon;
    const char* title;
    std::int32_t width;
    std::int32_t height;
    bool windowed;
};

/// Where the window stands: pixels of the screen with the frame, and the styles that make the frame.
struct WindowPlacement {
    DWORD extendedStyle;
    DWORD style;
    int x;
    int y;
    int width;
    int height;
};

/// Full screen: the picture at the top left, on top of everything. Windowed: a caption and a thin frame around the
/// picture. The picture's size, not that of the frame, is centred, so the picture sits a little below and right.
[[nodiscard]] WindowPlacement placementFor(const GameWindowWish& wish);

/// Registers the class on first use and creates the window, hidden, whose messages go to `owner`. Null when the system
/// refused one of the two.
[[nodiscard]] HWND createGameWindow(const GameWindowWish& wish, Application& owner);

/// Gives the window the program's icon, a miner's helmet, which is resource 101.
void setProgramIcon(HWND window, HINSTANCE instance);

/// Passes messages to the window until the quit message. False when reading them failed. Main thread.
bool pumpMessages();

/// Separates the window from its application, which is about to be destroyed, and destroys it if it still exists.
void forgetGameWindow(HWND window);

/// Whether the program starts in a window. A capital F anywhere in the command line asks for the full screen. When the
/// registry holds the player's settings, they decide instead, and this writes their full-screen value back as off: a
/// player who cannot leave the full screen meets it only once. The menu writes the value again.
[[nodiscard]] bool startsWindowed(const char* commandLine);

}  // namespace grub
