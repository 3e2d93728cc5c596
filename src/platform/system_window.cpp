#include "system_window.h"

#include <SDL.h>

#include <cstdio>
#include <utility>

namespace platform {
namespace {

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

/// What the system had to say to the window's former owner is not for the next one.
void forgetEvents() {
    SDL_PumpEvents();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

}  // namespace

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
