#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace platform {

/// None stands for a move. The numbers are SDL's.
enum class MouseButton { None, Left, Middle, Right };

/// The message of a button going down or up, or with None of a move. `clicks` counts the presses of a fast series from
/// 1: with a class that has double clicks every second press is one, instead of a press. The middle button has no
/// message.
[[nodiscard]] constexpr std::optional<UINT> mouseMessage(MouseButton button, bool down, int clicks, bool doubleClicks) {
    const bool secondPress = doubleClicks && clicks > 0 && clicks % 2 == 0;
    switch (button) {
        case MouseButton::None: return WM_MOUSEMOVE;
        case MouseButton::Left:
            if (!down) return WM_LBUTTONUP;
            return secondPress ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN;
        case MouseButton::Right:
            if (!down) return WM_RBUTTONUP;
            return secondPress ? WM_RBUTTONDBLCLK : WM_RBUTTONDOWN;
        case MouseButton::Middle: return std::nullopt;
    }
    return std::nullopt;
}

/// A position as a message carries it: two signed halves, x in the low one.
[[nodiscard]] constexpr LPARAM mousePosition(int x, int y) {
    const auto half = [](int value) {
        return static_cast<std::uint16_t>(static_cast<std::int16_t>(std::clamp(value, -32768, 32767)));
    };
    return static_cast<LPARAM>(std::uint32_t{half(y)} << 16U | half(x));
}

}  // namespace platform
