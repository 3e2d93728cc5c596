#pragma once

#include <windows.h>

#include <cstdint>

/// What the picture devices of the layer ask of windows. Internal to the layer.
namespace platform {

/// Hands a finished picture to the window: rows of `strideBytes`, pixels 0xXXRRGGBB. The pixels are copied; the
/// window's thread shows the latest picture when it comes round, so the caller never waits for the screen. Any thread.
/// False when the window is gone. Under a script the call returns after the script's lines for this picture have been
/// carried out.
bool showFrame(HWND window, const std::uint32_t* xrgb, int width, int height, int strideBytes);

/// Fills the desktop with the picture, or goes back to the size the window had before. Any thread; waits until it is
/// done. False when the window is gone or the system refuses. Nothing happens when the window is in that mode already.
bool setFullScreen(HWND window, bool fullScreen);

/// The desktop as the system shows it now (refresh rate in Hz, 0 when unknown). Tests may override the size.
struct DesktopMode {
    int width;
    int height;
    int refreshRate;
};
[[nodiscard]] DesktopMode desktopMode();

}  // namespace platform
