#include "desktop/window.h"

#include <SDL.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "desktop/icons.h"
#include "desktop/messages.h"
#include "desktop/video.h"
#include "kernel/calls.h"
#include "kernel/waits.h"

namespace platform {
namespace {

/// Classes and living windows; guarded by the wait lock. Never destroyed: other threads may outlive main.
struct Desktop {
    std::map<std::string, ATOM, std::less<>> atoms;
    std::map<ATOM, std::shared_ptr<WindowClass>> classes;
    std::vector<std::shared_ptr<Window>> windows;
    std::uintptr_t lastHandle = 0;
};

Desktop& desktop() {
    static auto* all = new Desktop;
    return *all;
}

template <class Test>
std::shared_ptr<Window> findWindow(Test test) {
    const WaitGuard lock(waitLock());
    const auto& windows = desktop().windows;
    const auto found = std::ranges::find_if(windows, test);
    return found == windows.end() ? nullptr : *found;
}

std::shared_ptr<WindowClass> findClass(LPCSTR nameOrAtom) {
    constexpr std::uintptr_t kLargestAtom = 0xFFFF;
    const WaitGuard lock(waitLock());
    auto atom = static_cast<ATOM>(reinterpret_cast<std::uintptr_t>(nameOrAtom));
    if (reinterpret_cast<std::uintptr_t>(nameOrAtom) > kLargestAtom) {
        const auto name = desktop().atoms.find(std::string_view(nameOrAtom));
        if (name == desktop().atoms.end()) return nullptr;
        atom = name->second;
    }
    const auto found = desktop().classes.find(atom);
    return found == desktop().classes.end() ? nullptr : found->second;
}

/// The width of a window's frame: at each side and at the top.
struct FrameSize {
    int side;
    int top;
};

FrameSize frameOf(DWORD style) {
    if ((style & WS_CAPTION) != WS_CAPTION) return {0, 0};
    const int side = GetSystemMetrics(SM_CYEDGE) + GetSystemMetrics(SM_CXBORDER);
    return {side, side + GetSystemMetrics(SM_CYCAPTION)};
}

/// The window of the system for the client area that the game counts on.
SDL_Window* openSystemWindow(Window& window) {
    const auto& wanted = window.creation;
    const auto [side, top] = frameOf(static_cast<DWORD>(wanted.style));
    window.windowedSize.width = std::max(1, wanted.cx - 2 * side);
    window.windowedSize.height = std::max(1, wanted.cy - top - side);
    return takeSystemWindow(wanted.lpszName, wanted.x + side, wanted.y + top, window.windowedSize.width,
                            window.windowedSize.height);
}

void closeSystemWindow(Window& window) {
    window.presenter.close();
    giveBackSystemWindow(std::exchange(window.system, nullptr));
}

HWND enter(const std::shared_ptr<Window>& window) {
    serveWindows = serveOwnWindows;
    const WaitGuard lock(waitLock());
    desktop().lastHandle += 0x10002;  // large, so that no index or atom looks like a handle
    window->handle = reinterpret_cast<HWND>(desktop().lastHandle);
    desktop().windows.push_back(window);
    return window->handle;
}

void place(SDL_Window* system, const SDL_Rect& area) {
    SDL_SetWindowPosition(system, area.x, area.y);
    SDL_SetWindowSize(system, area.w, area.h);
}

/// SDL asks the window manager to make the window as large as the desktop. Without a window manager the window would
/// keep its size and place, so it gets those of the desktop first.
bool fillDesktop(Window& window) {
    SDL_Rect before{};
    SDL_Rect desktop{};
    SDL_GetWindowPosition(window.system, &before.x, &before.y);
    SDL_GetWindowSize(window.system, &before.w, &before.h);
    if (SDL_GetDisplayBounds(SDL_GetWindowDisplayIndex(window.system), &desktop) == 0) place(window.system, desktop);
    const bool filled =
        !isRefused(Call::FullScreen) && SDL_SetWindowFullscreen(window.system, SDL_WINDOW_FULLSCREEN_DESKTOP) == 0 &&
        (SDL_GetWindowFlags(window.system) & SDL_WINDOW_FULLSCREEN_DESKTOP) == SDL_WINDOW_FULLSCREEN_DESKTOP;
    if (filled) {
        const WaitGuard lock(waitLock());
        window.windowedX = before.x;
        window.windowedY = before.y;
        window.windowedSize = {before.w, before.h};
    } else {
        place(window.system, before);
    }
    return filled;
}

bool leaveDesktop(Window& window) {
    if (SDL_SetWindowFullscreen(window.system, 0) != 0) return false;
    place(window.system, {window.windowedX, window.windowedY, window.windowedSize.width, window.windowedSize.height});
    return true;
}

/// From here on no other thread reaches the window; the threads that wait for it get 0.
void leave(const std::shared_ptr<Window>& window) {
    const WaitGuard lock(waitLock());
    window->alive = false;
    for (auto* call : window->sent) {
        call->done = true;
        releaseAll(call);
    }
    window->sent.clear();
    window->posted.clear();
    window->frameArrived = false;
}

/// From here on the handle means nothing.
void forget(const std::shared_ptr<Window>& window) {
    const WaitGuard lock(waitLock());
    std::erase(desktop().windows, window);
}

}  // namespace

std::shared_ptr<Window> windowOf(HWND handle) {
    return findWindow([handle](const auto& window) { return window->handle == handle; });
}

std::shared_ptr<Window> ownWindow() {
    const DWORD thread = GetCurrentThreadId();
    return findWindow([thread](const auto& window) { return window->owner == thread; });
}

std::shared_ptr<Window> windowOfSystem(std::uint32_t systemId) {
    auto* const system = SDL_GetWindowFromID(systemId);
    return system == nullptr ? nullptr : findWindow([system](const auto& window) { return window->system == system; });
}

LRESULT callProcedure(const Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    return window.windowClass->procedure(window.handle, message, wParam, lParam);
}

PictureSize pictureSize(HWND handle) {
    const auto window = windowOf(handle);
    const WaitGuard lock(waitLock());
    return window ? window->windowedSize : PictureSize{};
}

bool setFullScreen(HWND handle, bool fullScreen) {
    const auto window = windowOf(handle);
    if (!window) return false;
    return callOwner(window, [&window, fullScreen]() -> LRESULT {
               if (window->fullScreen == fullScreen) return 1;
               if (!(fullScreen ? fillDesktop(*window) : leaveDesktop(*window))) return 0;
               window->fullScreen = fullScreen;
               window->presenter.showAgain(*window->system);
               return 1;
           }) != 0;
}

}  // namespace platform

ATOM RegisterClassExA(const WNDCLASSEXA* windowClass) {
    if (windowClass->lpszClassName == nullptr || windowClass->lpfnWndProc == nullptr) return 0;
    if (platform::isRefused(platform::Call::RegisterClass)) return 0;
    const platform::WaitGuard lock(platform::waitLock());
    auto& desktop = platform::desktop();
    constexpr ATOM kFirstAtom = 0xC000;
    const auto next = static_cast<ATOM>(kFirstAtom + desktop.atoms.size());
    const ATOM atom = desktop.atoms.emplace(windowClass->lpszClassName, next).first->second;
    desktop.classes[atom] = std::make_shared<platform::WindowClass>(
        platform::WindowClass{windowClass->lpfnWndProc, windowClass->style, windowClass->hIcon});
    return atom;
}

HWND CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter) {
    const auto windowClass = platform::findClass(className);
    if (!windowClass || platform::isRefused(platform::Call::CreateWindow)) return nullptr;
    if (!platform::openVideo()) return nullptr;
    const auto window = std::make_shared<platform::Window>();
    window->owner = GetCurrentThreadId();
    window->windowClass = windowClass;
    window->creation = {parameter, instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
                        title,     className, exStyle};
    window->system = platform::openSystemWindow(*window);
    if (window->system == nullptr) return nullptr;
    platform::showIcon(*window);
    const HWND handle = platform::enter(window);
    const auto answer = platform::callProcedure(*window, WM_CREATE, 0, reinterpret_cast<LPARAM>(&window->creation));
    if (answer != -1) return handle;
    DestroyWindow(handle);
    return nullptr;
}

BOOL ShowWindow(HWND handle, int command) {
    const auto window = platform::windowOf(handle);
    if (!window) return FALSE;
    const bool wasVisible = (SDL_GetWindowFlags(window->system) & SDL_WINDOW_SHOWN) != 0;
    if (command == SW_SHOW) {
        SDL_ShowWindow(window->system);
        SDL_RaiseWindow(window->system);
    }
    return wasVisible ? TRUE : FALSE;
}

BOOL DestroyWindow(HWND handle) {
    const auto window = platform::windowOf(handle);
    if (!window || window->owner != GetCurrentThreadId() || !window->alive) return FALSE;
    platform::leave(window);
    platform::callProcedure(*window, WM_DESTROY, 0, 0);  // it may still read GWLP_USERDATA
    platform::forget(window);
    platform::closeSystemWindow(*window);
    return TRUE;
}

LONG_PTR SetWindowLongPtrA(HWND handle, int index, LONG_PTR value) {
    const auto window = platform::windowOf(handle);
    if (!window || index != GWLP_USERDATA) return 0;
    const platform::WaitGuard lock(platform::waitLock());
    return std::exchange(window->userData, value);
}

LONG_PTR GetWindowLongPtrA(HWND handle, int index) {
    const auto window = platform::windowOf(handle);
    if (!window || index != GWLP_USERDATA) return 0;
    const platform::WaitGuard lock(platform::waitLock());
    return window->userData;
}

LONG_PTR SetClassLongA(HWND handle, int index, LONG_PTR value) {
    const auto window = platform::windowOf(handle);
    if (!window || index != GCL_HICON) return 0;
    const HICON before = std::exchange(window->windowClass->icon, reinterpret_cast<HICON>(value));
    platform::showIcon(*window);
    return reinterpret_cast<LONG_PTR>(before);
}
