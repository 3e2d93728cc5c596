#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

/// A window (800 x 600 if nothing else is said) whose procedure is a function object; anything it answers nothing to
/// gets default processing.
class TestWindow {
public:
    struct Heard {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };
    using Procedure = std::function<LRESULT(HWND, const Heard&)>;

    explicit TestWindow(Procedure procedure = defaultProcedure, int width = 800, int height = 600)
        : procedure_(std::move(procedure)) {
        WNDCLASSEXA about{};
        about.cbSize = sizeof about;
        about.style = CS_OWNDC | CS_DBLCLKS;
        about.lpfnWndProc = dispatch;
        about.lpszClassName = "TestWindowClass";
        const ATOM atom = RegisterClassExA(&about);
        constexpr DWORD kStyle = WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
        const int side = GetSystemMetrics(SM_CYEDGE) + GetSystemMetrics(SM_CXBORDER);
        handle_ = CreateWindowExA(0, MAKEINTRESOURCEA(atom), "Test", kStyle, 10, 10, width + 2 * side,
                                  height + GetSystemMetrics(SM_CYCAPTION) + 2 * side, nullptr, nullptr, nullptr, this);
    }
    ~TestWindow() {
        DestroyWindow(handle_);
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        }
    }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    /// Null when the window could not be created.
    [[nodiscard]] HWND handle() const { return handle_; }

    /// Dispatches messages until the quit message.
    static int loop() {
        MSG message;
        int result = 0;
        while ((result = GetMessageA(&message, nullptr, 0, 0)) > 0) DispatchMessageA(&message);
        return result;
    }

    /// Everything heard while the messages that are on their way now are handled, a paint message last.
    std::vector<Heard> pump() {
        constexpr UINT kEnd = WM_USER + 999;
        heard_.clear();
        // The first marker comes before what the system still has to report, the second after it.
        for (int marker = 0; marker < 2; ++marker) {
            PostMessageA(handle_, kEnd, 0, 0);
            while (dispatchOne() != kEnd) {
            }
        }
        if (GetUpdateRect(handle_, nullptr, FALSE) != FALSE) dispatchOne();
        return heard_;
    }

    /// Ends the loop when the window is destroyed; else the default processing.
    static LRESULT defaultProcedure(HWND window, const Heard& heard) {
        if (heard.message == WM_DESTROY) PostQuitMessage(0);
        return DefWindowProcA(window, heard.message, heard.wParam, heard.lParam);
    }

private:
    static UINT dispatchOne() {
        MSG message;
        GetMessageA(&message, nullptr, 0, 0);
        DispatchMessageA(&message);
        return message.message;
    }

    static LRESULT CALLBACK dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_CREATE) {
            const auto* creation = reinterpret_cast<const CREATESTRUCTA*>(lParam);
            SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
            current() = static_cast<TestWindow*>(creation->lpCreateParams);
        }
        current()->heard_.push_back({message, wParam, lParam});
        return current()->procedure_(window, {message, wParam, lParam});
    }

    /// A window that is being destroyed has no user data any more, so the procedure looks here.
    static TestWindow*& current() {
        static TestWindow* window = nullptr;
        return window;
    }

    Procedure procedure_;
    std::vector<Heard> heard_;
    HWND handle_ = nullptr;
};
