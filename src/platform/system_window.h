#pragma once

struct SDL_Window;

namespace platform {

/// A hidden window of the system with a renderer, at this place and size of its client area; it can always be enlarged,
/// since the picture is scaled. Null when the system refuses.
///
/// The layer never destroys what it gets from here, it gives it back, hidden, and the next one is made of it. SDL wakes
/// the event loop by a message to its window on a connection of its own. When that message is still under way and the
/// window is destroyed, X ends the process ("BadWindow"), so a window has to outlive every thread that may send one.
/// For the same reason the renderer is made at once: making it may replace the window.
[[nodiscard]] SDL_Window* takeSystemWindow(const char* title, int x, int y, int width, int height);
/// Hides a window for the next one to use.
void giveBackSystemWindow(SDL_Window* window);

}  // namespace platform
