#include "testing.h"

#include <SDL.h>

#include "clock.h"
#include "mouse_map.h"
#include "waits.h"
#include "window.h"

namespace platform::testing {
namespace {

constexpr std::int64_t kUsualFrequency = 1000 * kTicksPerMillisecond;

void pushEvent(SDL_Event event) { SDL_PushEvent(&event); }

SDL_Event windowEvent(const Window& window, std::uint8_t kind) {
    SDL_Event event{};
    event.window.type = SDL_WINDOWEVENT;
    event.window.windowID = SDL_GetWindowID(window.system);
    event.window.event = kind;
    return event;
}

}  // namespace

HandDrivenClock::HandDrivenClock(Moves moves) {
    joinParticipants();
    const WaitGuard lock(waitLock());
    auto& clock = handClock();
    clock.time = 0;
    clock.offset = 0;
    clock.ticksAtEachReading = 0;
    clock.frequency = kUsualFrequency;
    clock.jumpsWhenAllWait = moves == Moves::WhenAllWait;
    clock.inUse = true;
}

HandDrivenClock::~HandDrivenClock() {
    {
        const WaitGuard lock(waitLock());
        handClock().inUse = false;
        recheckWaits();  // finite ones end now: their time means nothing to the system's clock
    }
    leaveParticipants();
}

void HandDrivenClock::advance(std::chrono::milliseconds time) {
    const WaitGuard lock(waitLock());
    setHandTime(handClock().time + time.count() * kTicksPerMillisecond);
}

void HandDrivenClock::settle() const {
    WaitGuard lock(waitLock());
    waitUntilOthersWait(lock);
}

std::chrono::milliseconds HandDrivenClock::now() const {
    return std::chrono::milliseconds(handClock().time / kTicksPerMillisecond);
}

void HandDrivenClock::setFrequency(std::int64_t ticksPerSecond) { handClock().frequency = ticksPerSecond; }

void HandDrivenClock::setCounter(std::int64_t ticks) {
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    handClock().offset += ticks - counter.QuadPart;
}

void HandDrivenClock::addAtEachReading(std::int64_t ticks) { handClock().ticksAtEachReading = ticks; }

bool injectKey(HWND handle, std::string_view name, bool down) {
    const auto window = windowOf(handle);
    auto stroke = namedKey(name, down);
    if (!window || !stroke) return false;
    constexpr UINT kMenu = 0x12;
    if (window->keys.isDown(kMenu)) stroke->modifiers |= KMOD_LALT;
    SDL_Event event{};
    event.key.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    event.key.windowID = SDL_GetWindowID(window->system);
    event.key.state = down ? SDL_PRESSED : SDL_RELEASED;
    event.key.keysym.scancode = static_cast<SDL_Scancode>(stroke->scanCode);
    event.key.keysym.sym = stroke->symbol;
    event.key.keysym.mod = static_cast<Uint16>(stroke->modifiers);
    pushEvent(event);
    return true;
}

void injectMouse(HWND handle, int button, bool down, int clicks, int x, int y) {
    const auto window = windowOf(handle);
    if (!window) return;
    const auto area = window->presenter.area(*window->system);
    SDL_Event event{};
    if (button == 0) {
        event.motion.type = SDL_MOUSEMOTION;
        event.motion.windowID = SDL_GetWindowID(window->system);
        event.motion.x = area.windowX(x);
        event.motion.y = area.windowY(y);
    } else {
        event.button.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        event.button.windowID = SDL_GetWindowID(window->system);
        event.button.button = static_cast<Uint8>(button);
        event.button.state = down ? SDL_PRESSED : SDL_RELEASED;
        event.button.clicks = static_cast<Uint8>(clicks);
        event.button.x = area.windowX(x);
        event.button.y = area.windowY(y);
    }
    pushEvent(event);
}

void injectExpose(HWND handle) {
    if (const auto window = windowOf(handle)) pushEvent(windowEvent(*window, SDL_WINDOWEVENT_EXPOSED));
}

void injectClose(HWND handle) {
    if (const auto window = windowOf(handle)) pushEvent(windowEvent(*window, SDL_WINDOWEVENT_CLOSE));
}

std::uint64_t presentedPictures(HWND handle) {
    const auto window = windowOf(handle);
    return window ? window->presenter.count() : 0;
}

Picture lastPicture(HWND handle) {
    const auto window = windowOf(handle);
    return window ? window->presenter.latest() : Picture{};
}

Picture screen(HWND handle) {
    const auto window = windowOf(handle);
    return window ? window->presenter.readBack() : Picture{};
}

void blankScreen(HWND handle) {
    if (const auto window = windowOf(handle)) window->presenter.blacken();
}

void resizeWindow(HWND handle, int width, int height) {
    if (const auto window = windowOf(handle)) SDL_SetWindowSize(window->system, width, height);
}

std::optional<POINT> windowSize(HWND handle) {
    const auto window = windowOf(handle);
    if (!window) return std::nullopt;
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window->system, &width, &height);
    return POINT{width, height};
}

}  // namespace platform::testing
