#include "game_window.h"

namespace grub {

namespace {

ATOM registerWindowClass(const GameWindowWish& wish, WNDPROC procedure) {
    WNDCLASSEXA description{};
    description.cbSize = sizeof(description);
    description.style = CS_OWNDC | CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.hInstance = wish.instance;
    description.hIcon = wish.icon;
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.lpszClassName = kWindowClassName;
    return RegisterClassExA(&description);
}

// The class of the process; 0 while registering it keeps failing.
ATOM windowClass(const GameWindowWish& wish, WNDPROC procedure) {
    static ATOM atom = 0;
    if (!atom) atom = registerWindowClass(wish, procedure);
    return atom;
}

}  // namespace

WindowPlacement placementFor(const GameWindowWish& wish) {
    if (!wish.windowed) {
        return {WS_EX_TOPMOST, WS_POPUP | WS_BORDER | WS_SYSMENU, 0, 0, wish.width, wish.height};
    }
    const int frame = GetSystemMetrics(SM_CYEDGE) + GetSystemMetrics(SM_CXBORDER);
    return {0,
            WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX,
            (GetSystemMetrics(SM_CXSCREEN) - wish.width) / 2,
            (GetSystemMetrics(SM_CYSCREEN) - wish.height) / 2,
            wish.width + 2 * frame,
            wish.height + GetSystemMetrics(SM_CYCAPTION) + 2 * frame};
}

HWND createGameWindow(const GameWindowWish& wish, WNDPROC procedure, void* owner) {
    const ATOM atom = windowClass(wish, procedure);
    if (!atom) return nullptr;
    const WindowPlacement place = placementFor(wish);
    return CreateWindowExA(place.extendedStyle, MAKEINTRESOURCEA(atom), wish.title, place.style, place.x, place.y,
                           place.width, place.height, nullptr, nullptr, wish.instance, owner);
}

bool pumpMessages() {
    MSG message{};
    BOOL received = FALSE;
    while ((received = GetMessageA(&message, nullptr, 0, 0)) > 0) DispatchMessageA(&message);
    return received == 0;
}

void forgetGameWindow(HWND window) {
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    DestroyWindow(window);
}

}  // namespace grub
