#include "control/testing.h"

#include <SDL.h>

#include <mutex>
#include <utility>

#include "desktop/input_map.h"
#include "desktop/message_box.h"
#include "desktop/video.h"
#include "desktop/window.h"
#include "files/registry_store.h"
#include "kernel/events.h"
#include "kernel/waits.h"

namespace platform::testing {
namespace {

void pushEvent(SDL_Event event) { SDL_PushEvent(&event); }

SDL_Event windowEvent(const Window& window, std::uint8_t kind) {
    SDL_Event event{};
    event.window.type = SDL_WINDOWEVENT;
    event.window.windowID = SDL_GetWindowID(window.system);
    event.window.event = kind;
    return event;
}

}  // namespace

struct MessageBoxRecorder::Recording {
    std::mutex lock;
    std::vector<MessageBox> boxes;
    Waitable answered{true, false};

    void take(const MessageBox& box) {
        {
            const std::lock_guard guard(lock);
            boxes.push_back(box);
        }
        waitFor(answered);
    }

    void answer() {
        const WaitGuard guard(waitLock());
        answered.set();
    }
};

MessageBoxRecorder::MessageBoxRecorder(Answers answers) : recording_(std::make_shared<Recording>()) {
    if (answers == Answers::AtOnce) recording_->answer();
    takeMessageBoxes([recording = recording_](const MessageBox& box) { recording->take(box); });
}

MessageBoxRecorder::~MessageBoxRecorder() {
    answerAll();
    takeMessageBoxes(nullptr);
}

std::vector<MessageBox> MessageBoxRecorder::boxes() const {
    const std::lock_guard guard(recording_->lock);
    return recording_->boxes;
}

void MessageBoxRecorder::answerAll() { recording_->answer(); }

DesktopSize::DesktopSize(int width, int height) { pretendDesktop(width, height); }

DesktopSize::~DesktopSize() { pretendDesktop(0, 0); }

RegistryFile::RegistryFile(std::filesystem::path path) { useRegistryFile(std::move(path)); }

RegistryFile::~RegistryFile() { useRegistryFile(std::nullopt); }

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

ScreenPicture lastPicture(HWND handle) {
    const auto window = windowOf(handle);
    return window ? window->presenter.latest() : ScreenPicture{};
}

ScreenPicture screen(HWND handle) {
    const auto window = windowOf(handle);
    return window ? window->presenter.readBack() : ScreenPicture{};
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
