#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace platform {

/// A key as SDL reports it.
struct KeyStroke {
    int scanCode;         // SDL_Scancode: the place on the keyboard
    std::int32_t symbol;  // SDL_Keycode: what the layout makes of it
    unsigned modifiers;   // SDL_Keymod bits held at that moment
    bool down;
};

/// A key as a window hears of it.
struct KeyMessage {
    UINT message;
    UINT virtualKey;
    friend bool operator==(const KeyMessage&, const KeyMessage&) = default;
};

/// Turns key strokes into window messages. Letters follow the player's layout; where that has none at a place (a
/// Cyrillic or Greek one), the place itself decides. Presses under Alt and F10 are WM_SYSKEYDOWN, which no game hears,
/// but every release is a WM_KEYUP with the virtual key of its press, so that nobody runs on after a key was let go.
class KeyboardMap {
public:
    /// Nothing for keys that Windows does not know.
    [[nodiscard]] std::optional<KeyMessage> translate(const KeyStroke& stroke);
    /// Whether a key with this virtual key was pressed and not released yet.
    [[nodiscard]] bool isDown(UINT virtualKey) const;

private:
    std::array<std::uint8_t, 512> pressedAs_{};  // virtual key by scan code; 0 while up
};

/// A press or release of the key with this name ("Left", "Enter", "Z", "Keypad 5"; case does not count) on a US layout.
[[nodiscard]] std::optional<KeyStroke> namedKey(std::string_view name, bool down);

}  // namespace platform
