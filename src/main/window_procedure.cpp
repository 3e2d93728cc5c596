#include "window_procedure.h"

#include "application.h"
#include "engine_services.h"

namespace grub {

namespace {

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

}  // namespace

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) rememberApplication(window, lParam);
    Application* const application = applicationOf(window);
    if (!application) return DefWindowProcA(window, message, wParam, lParam);
    return handle(*application, window, message, wParam, lParam);
}

}  // namespace grub
