#include "game_window.h"

#include <cstring>
#include <optional>
#include <vector>

#include "application.h"
#include "desktop/icons.h"
#include "engine_services.h"
#include "settings.h"

namespace grub {

namespace {

DWORD readFullScreen(HKEY key) {
    DWORD value = 0;
    DWORD size = sizeof(value);
    const LONG result =
        RegQueryValueExA(key, kFullScreenValue, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size);
    return result == ERROR_SUCCESS ? value : 0;
}

void writeFullScreenOff(HKEY key) {
    const DWORD off = 0;
    RegSetValueExA(key, kFullScreenValue, 0, REG_BINARY, reinterpret_cast<const BYTE*>(&off), sizeof(off));
}

// Reads the player's setting and switches it off. Empty when the registry has no such key.
std::optional<bool> takeFullScreenSetting() {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kSettingsKey, 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) return std::nullopt;
    const bool fullScreen = readFullScreen(key) != 0;
    writeFullScreenOff(key);
    RegCloseKey(key);
    return fullScreen;
}

Application* applicationOf(HWND window) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a window keeps its pointer as a number
    return reinterpret_cast<Application*>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

void rememberApplication(HWND window, LPARAM creation) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry pointers as numbers
    const auto* const parameters = reinterpret_cast<const CREATESTRUCTA*>(creation);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(parameters->lpCreateParams));
}

void postToScene(Application& application, MessageType type) {
    application.postToCurrentScene(SharedRef<SceneMessage>(new SceneMessage(type, MessageSource::Window)));
}

void repaint(HWND window, Application& application) {
    if (GetUpdateRect(window, nullptr, FALSE)) ValidateRect(window, nullptr);
    postToScene(application, MessageType::Repaint);
}

void passKey(WPARAM virtualKey, UINT message) {
    if (KeyboardService* const keyboard = EngineServices::keyboard()) {
        keyboard->postKeyMessage(static_cast<std::uint32_t>(virtualKey), message);
    }
}

void passMouse(LPARAM position, UINT message) {
    if (MouseService* const mouse = EngineServices::mouse()) {
        mouse->postMouseMessage(static_cast<std::uint32_t>(position), message);
    }
}

HRESULT askDevice(Application& application, HRESULT (D3DRenderer::*question)()) {
    D3DRenderer* const renderer = application.renderer();
    return renderer ? (renderer->*question)() : E_FAIL;
}

LRESULT handle(Application& application, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_DESTROY: PostQuitMessage(0); return 0;
        case WM_PAINT: repaint(window, application); return 0;
        case WM_CLOSE: postToScene(application, MessageType::CloseRequest); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_KEYDOWN:
        case WM_KEYUP: passKey(wParam, message); return 0;
        case WM_MOUSEMOVE:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONUP:
        case WM_RBUTTONDBLCLK: passMouse(lParam, message); return 0;
        case kDestroyWindowMessage: DestroyWindow(window); return 0;
        case D3DRenderer::kTestDeviceMessage: return askDevice(application, &D3DRenderer::testCooperativeLevel);
        case D3DRenderer::kResetDeviceMessage: return askDevice(application, &D3DRenderer::resetDevice);
        default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) rememberApplication(window, lParam);
    Application* const application = applicationOf(window);
    if (!application) return DefWindowProcA(window, message, wParam, lParam);
    return handle(*application, window, message, wParam, lParam);
}

ATOM registerWindowClass(const GameWindowWish& wish) {
    WNDCLASSEXA description{};
    description.cbSize = sizeof(description);
    description.style = CS_OWNDC | CS_DBLCLKS;
    description.lpfnWndProc = windowProcedure;
    description.hInstance = wish.instance;
    description.hIcon = wish.icon;
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.lpszClassName = kWindowClassName;
    return RegisterClassExA(&description);
}

// The class of the process, registered on first use; 0 when the system refused.
ATOM windowClass(const GameWindowWish& wish) {
    static ATOM atom = 0;
    if (!atom) atom = registerWindowClass(wish);
    return atom;
}

constexpr int kIconSize = 32;  // pixels
constexpr WORD kIconNumber = 101;

constexpr std::uint32_t kNothing = 0x00000000;
constexpr std::uint32_t kOutline = 0xFF3A1B2C;
constexpr std::uint32_t kHelmet = 0xFFF0592B;
constexpr std::uint32_t kHelmetLight = 0xFFFFB066;
constexpr std::uint32_t kBrim = 0xFFC23A30;
constexpr std::uint32_t kLamp = 0xFFFFFFE0;

// Whether the centre of pixel (x, y) lies in the ellipse; all in half pixels, so that whole numbers do.
constexpr bool inEllipse(int x, int y, int centreX, int centreY, int radiusX, int radiusY) {
    const int dx = (2 * x + 1 - centreX) * radiusY;
    const int dy = (2 * y + 1 - centreY) * radiusX;
    return dx * dx + dy * dy <= radiusX * radiusY * radiusX * radiusY;
}

// A miner's helmet from the front: dome, brim, and a lamp in the middle.
constexpr std::uint32_t helmetPixel(int x, int y) {
    if (inEllipse(x, y, 32, 30, 9, 9)) return kLamp;
    if (inEllipse(x, y, 32, 30, 13, 13)) return kOutline;
    if (inEllipse(x, y, 32, 46, 29, 7)) return kBrim;
    if (inEllipse(x, y, 32, 46, 32, 10)) return kOutline;
    if (y < 24 && inEllipse(x, y, 24, 24, 6, 8)) return kHelmetLight;
    if (y < 24 && inEllipse(x, y, 32, 44, 23, 35)) return kHelmet;
    if (y < 24 && inEllipse(x, y, 32, 44, 26, 38)) return kOutline;
    return kNothing;
}

}  // namespace

void setProgramIcon(HWND window, HINSTANCE instance) {
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < kIconSize; ++y)
        for (int x = 0; x < kIconSize; ++x) pixels.push_back(helmetPixel(x, y));
    platform::setIconResource(kIconNumber, pixels, kIconSize, kIconSize);
    const HICON icon = LoadIconA(instance, MAKEINTRESOURCEA(kIconNumber));
    SetClassLongA(window, GCL_HICON, reinterpret_cast<LONG_PTR>(icon));
}

bool startsWindowed(const char* commandLine) {
    const bool fullScreenWished = std::strchr(commandLine, 'F') != nullptr;
    return !takeFullScreenSetting().value_or(fullScreenWished);
}

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

HWND createGameWindow(const GameWindowWish& wish, Application& owner) {
    const ATOM atom = windowClass(wish);
    if (!atom) return nullptr;
    const WindowPlacement place = placementFor(wish);
    return CreateWindowExA(place.extendedStyle, MAKEINTRESOURCEA(atom), wish.title, place.style, place.x, place.y,
                           place.width, place.height, nullptr, nullptr, wish.instance, &owner);
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
