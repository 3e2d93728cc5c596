#include "desktop/system_events.h"

#include <SDL.h>

#include <atomic>

#include "desktop/input_map.h"
#include "desktop/messages.h"
#include "desktop/window.h"

namespace platform {
namespace {

/// At most one wake-up lies in SDL's queue, which can be full. It is cleared when that queue is empty, before the
/// thread looks at the window's own queues, so that later work brings a new wake-up.
std::atomic<bool> wakeQueued{false};

void postMouse(Window& window, PointerButton button, bool down, int clicks, int windowX, int windowY) {
    const bool doubleClicks = (window.windowClass->style & CS_DBLCLKS) != 0;
    const auto message = mouseMessage(button, down, clicks, doubleClicks);
    if (!message) return;
    const auto area = window.presenter.area(*window.system);
    post(window, *message, 0, mousePosition(area.column(windowX), area.row(windowY)));
}

void takeWindowEvent(Window& window, const SDL_WindowEvent& event) {
    switch (event.event) {
        case SDL_WINDOWEVENT_EXPOSED:
        case SDL_WINDOWEVENT_SIZE_CHANGED: {
            window.presenter.showAgain(*window.system);
            const WaitGuard lock(waitLock());
            window.needsPaint = true;
            break;
        }
        case SDL_WINDOWEVENT_CLOSE: post(window, WM_CLOSE, 0, 0); break;
        default: break;
    }
}

void takeKey(Window& window, const SDL_KeyboardEvent& event) {
    const KeyStroke stroke{static_cast<int>(event.keysym.scancode), event.keysym.sym, event.keysym.mod,
                           event.state == SDL_PRESSED};
    if (const auto key = window.keys.translate(stroke)) post(window, key->message, key->virtualKey, 0);
}

PointerButton buttonOf(std::uint8_t systemButton) {
    switch (systemButton) {
        case SDL_BUTTON_LEFT: return PointerButton::Left;
        case SDL_BUTTON_RIGHT: return PointerButton::Right;
        default: return PointerButton::Middle;  // and the further ones, which have no message either
    }
}

void takeButton(Window& window, const SDL_MouseButtonEvent& event) {
    postMouse(window, buttonOf(event.button), event.state == SDL_PRESSED, event.clicks, event.x, event.y);
}

/// SDL_QUIT is not used: it follows the close of the last window, which is a message already.
void takeEvent(const SDL_Event& event) {
    switch (event.type) {
        case SDL_WINDOWEVENT:
            if (const auto window = windowOfSystem(event.window.windowID)) takeWindowEvent(*window, event.window);
            break;
        case SDL_KEYDOWN:
        case SDL_KEYUP:
            if (const auto window = windowOfSystem(event.key.windowID)) takeKey(*window, event.key);
            break;
        case SDL_MOUSEMOTION:
            if (const auto window = windowOfSystem(event.motion.windowID)) {
                postMouse(*window, PointerButton::None, false, 0, event.motion.x, event.motion.y);
            }
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            if (const auto window = windowOfSystem(event.button.windowID)) takeButton(*window, event.button);
            break;
        case SDL_RENDER_TARGETS_RESET:
        case SDL_RENDER_DEVICE_RESET:
            if (const auto window = ownWindow()) window->presenter.showAgain(*window->system);
            break;
        default: break;
    }
}

}  // namespace

void takeSystemEvents(int waitLimit) {
    SDL_Event event;
    if (waitLimit > 0 && SDL_WaitEventTimeout(&event, waitLimit) != 0) takeEvent(event);
    while (SDL_PollEvent(&event) != 0) takeEvent(event);
    wakeQueued = false;
}

void wakeSystemWait() {
    if (wakeQueued.exchange(true)) return;
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    if (SDL_PushEvent(&event) != 1) wakeQueued = false;
}

}  // namespace platform
