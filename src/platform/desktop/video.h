#pragma once

struct SDL_Window;

/// SDL's video: the driver, the desktop, and the windows of the system.
namespace platform {

/// Runs without screen and sound card. Call it before the first window or sound device exists.
void useDummyDrivers();
/// Whether pictures reach no screen: SDL's driver has none, or, before it is chosen, the environment names no display.
[[nodiscard]] bool headless();

/// Opens SDL's video once, on the calling thread, which owns the windows from then on. False, after one line on
/// standard error, when no driver comes up, or one without a screen that SDL_VIDEODRIVER does not ask for.
bool openVideo();

/// The desktop as the system shows it now. Sizes in pixels, refresh rate in Hz; 0 when unknown.
struct DesktopMode {
    int width;
    int height;
    int refreshRate;
};
[[nodiscard]] DesktopMode desktopMode();
/// Lets `desktopMode` report another size; width 0 ends that. For tests.
void pretendDesktop(int width, int height);

/// A hidden window of the system with a renderer, at this place and size of its client area; it can always be enlarged,
/// since the picture is scaled. Null when the system refuses. The windows' thread only.
///
/// The layer never destroys a system window; it gives it back, and the next one is made of it. SDL wakes the event loop
/// by a message to its window on a connection of its own. If the window is destroyed while that message is on its way,
/// X ends the process ("BadWindow"), so the window has to outlive every thread that may send one. The renderer is made
/// at once for the same reason: making it may replace the window.
[[nodiscard]] SDL_Window* takeSystemWindow(const char* title, int x, int y, int width, int height);
/// Hides a window for the next one to use.
void giveBackSystemWindow(SDL_Window* window);

}  // namespace platform
