#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

/// The rules that turn what SDL reports of keyboard and mouse into window messages.
namespace platform {

/// A key as SDL reports it.
struct KeyStroke {
    int scanCode;         // SDL_Scancode: the place on the keyboard
    std::int32_t symbol;  // SDL_Keycode: what the layout makes of it
    unsigned modifiers;   // SDL_Keymod bits held at that moment
    bool down;
};

/// A message about a key.
struct WindowKey {
    UINT message;
    UINT virtualKey;
    friend bool operator==(const WindowKey&, const WindowKey&) = default;
};

/// Turns key strokes into window messages. Letters follow the player's layout; where the layout has no Latin letter (a
/// Cyrillic or Greek one), the place on the keyboard decides. A press under Alt, and F10, is WM_SYSKEYDOWN. Every
/// release is a WM_KEYUP with the virtual key of its press, so that no key stays held after its release.
class KeyboardMap {
public:
    /// Nothing for a key that has no virtual key.
    [[nodiscard]] std::optional<WindowKey> translate(const KeyStroke& stroke);
    /// Whether a key with this virtual key was pressed and not released yet.
    [[nodiscard]] bool isDown(UINT virtualKey) const;

private:
    std::array<std::uint8_t, 512> pressedAs_{};  // virtual key by scan code; 0 while up
};

/// A press or release of the key with this name ("Left", "Enter", "Z", "Keypad 5"; case does not count) on a US layout.
[[nodiscard]] std::optional<KeyStroke> namedKey(std::string_view name, bool down);

/// None stands for a move.
enum class PointerButton { None, Left, Middle, Right };

/// The message of a button going down or up, or with None of a move. `clicks` counts the presses of a fast series from
/// 1: with a class that has double clicks every second press is one, instead of a press. The middle button has no
/// message.
[[nodiscard]] std::optional<UINT> mouseMessage(PointerButton button, bool down, int clicks, bool doubleClicks);

/// A position as a message carries it: two signed halves, x in the low one.
[[nodiscard]] LPARAM mousePosition(int x, int y);

}  // namespace platform
