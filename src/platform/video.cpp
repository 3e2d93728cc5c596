#include "video.h"

#include <SDL.h>
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "host.h"
#include "testing.h"
#include "window_frames.h"

namespace platform {
namespace {

/// A desktop that a test made up; width 0 when none did.
std::atomic<int> pretendedWidth{0};
std::atomic<int> pretendedHeight{0};

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// SDL itself would silently fall back to a driver that nobody sees.
void chooseDriver() {
    if (isSet("SDL_VIDEODRIVER") || isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")) return;
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "dummy");
}

bool startVideo() {
    chooseDriver();
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");        // Ctrl+C in the terminal ends the program
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");  // the click that brings the window forward counts
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) == 0) return true;
    std::fprintf(stderr, "video: no driver comes up: %s\n", SDL_GetError());
    return false;
}

bool isBlind(const char* driver) {
    return driver != nullptr && (std::strcmp(driver, "dummy") == 0 || std::strcmp(driver, "offscreen") == 0);
}

}  // namespace

bool openVideo() {
    static const bool opened = startVideo();
    return opened;
}

void useDummyDrivers() {
    ::setenv("SDL_VIDEODRIVER", "dummy", 1);
    ::setenv("SDL_AUDIODRIVER", "dummy", 1);
}

bool headless() {
    if (SDL_WasInit(SDL_INIT_VIDEO) != 0) return isBlind(SDL_GetCurrentVideoDriver());
    if (isSet("SDL_VIDEODRIVER")) return isBlind(std::getenv("SDL_VIDEODRIVER"));
    return !isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY");
}

DesktopMode desktopMode() {
    SDL_DisplayMode mode{};
    if (!openVideo() || SDL_GetDesktopDisplayMode(0, &mode) != 0) mode.w = mode.h = mode.refresh_rate = 0;
    if (pretendedWidth != 0) return {pretendedWidth, pretendedHeight, mode.refresh_rate};
    return {mode.w, mode.h, mode.refresh_rate};
}

namespace testing {

DesktopSize::DesktopSize(int width, int height) {
    pretendedHeight = height;
    pretendedWidth = width;
}

DesktopSize::~DesktopSize() { pretendedWidth = 0; }

}  // namespace testing
}  // namespace platform

int GetSystemMetrics(int index) {
    switch (index) {
        case SM_CXSCREEN: return platform::desktopMode().width;
        case SM_CYSCREEN: return platform::desktopMode().height;
        case SM_CYCAPTION: return 23;  // this and the next two as a desktop of 96 dots an inch has them
        case SM_CXBORDER: return 1;
        case SM_CYEDGE: return 2;
        default: return 0;
    }
}
