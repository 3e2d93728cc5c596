#include "desktop/video.h"

#include <SDL.h>
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace platform {
namespace {

/// The desktop of `pretendDesktop`; width 0: the real one.
std::atomic<int> pretendedWidth{0};
std::atomic<int> pretendedHeight{0};

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool isBlind(const char* driver) {
    return driver != nullptr && (std::strcmp(driver, "dummy") == 0 || std::strcmp(driver, "offscreen") == 0);
}

/// Names the drivers with a screen that the environment points at; else SDL falls back to one without a screen.
void chooseDriver() {
    if (isSet("SDL_VIDEODRIVER")) return;  // a wish, also for a driver without a screen
    const char* const both = isSet("DISPLAY") ? "x11,wayland" : "wayland";
    SDL_SetHint(SDL_HINT_VIDEODRIVER, isSet("WAYLAND_DISPLAY") ? both : "x11");
}

bool startVideo() {
    chooseDriver();
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");        // Ctrl+C in the terminal ends the program
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");  // the click that brings the window forward counts
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) == 0) return true;
    const char* const display = std::getenv("DISPLAY");
    std::fprintf(stderr, "video: no screen can be reached (DISPLAY is \"%s\"): %s\n", display == nullptr ? "" : display,
                 SDL_GetError());
    return false;
}

/// The window that was given back; used by the windows' thread only.
SDL_Window* spare = nullptr;

SDL_Window* newWindow(const char* title, int x, int y, int width, int height) {
    SDL_Window* window = SDL_CreateWindow(title, x, y, width, height, SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE);
    if (window == nullptr) {
        std::fprintf(stderr, "video: no window: %s\n", SDL_GetError());
        return nullptr;
    }
    if (SDL_CreateRenderer(window, -1, 0) == nullptr &&
        SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE) == nullptr) {
        std::fprintf(stderr, "video: the window cannot show pictures: %s\n", SDL_GetError());
    }
    SDL_StopTextInput();  // an input method would swallow keys
    return window;
}

/// The next owner must not get the events of the former one.
void forgetEvents() {
    SDL_PumpEvents();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
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

void pretendDesktop(int width, int height) {
    pretendedHeight = height;
    pretendedWidth = width;
}

SDL_Window* takeSystemWindow(const char* title, int x, int y, int width, int height) {
    SDL_Window* window = std::exchange(spare, nullptr);
    if (window == nullptr) return newWindow(title, x, y, width, height);
    SDL_SetWindowTitle(window, title);
    SDL_SetWindowSize(window, width, height);
    SDL_SetWindowPosition(window, x, y);
    forgetEvents();
    return window;
}

void giveBackSystemWindow(SDL_Window* window) {
    SDL_SetWindowFullscreen(window, 0);
    SDL_HideWindow(window);
    spare = window;
}

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
