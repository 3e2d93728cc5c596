#include "input_messages.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace grub {

KeyCode keyCodeOf(std::uint32_t virtualKey) {
    switch (virtualKey) {
        case VK_UP: return KeyUp;
        case VK_DOWN: return KeyDown;
        case VK_LEFT: return KeyLeft;
        case VK_RIGHT: return KeyRight;
        case VK_SPACE: return KeySpace;
        case VK_RETURN: return KeyEnter;
        case VK_ESCAPE: return KeyEscape;
        case 'A': return KeyA;
        case 'B': return KeyB;
        case 'C': return KeyC;
        default: return static_cast<KeyCode>(virtualKey);
    }
}

void KeyboardInput::postKeyMessage(std::uint32_t virtualKey, std::uint32_t windowsMessage) {
    const auto type = windowsMessage == WM_KEYUP ? MessageType::Released : MessageType::Pressed;
    const auto character = static_cast<std::uint8_t>(MapVirtualKeyA(virtualKey, MAPVK_VK_TO_CHAR) & 0xFF);
    application_.postToCurrentScene(SharedRef<SceneMessage>(new KeyMessage(type, keyCodeOf(virtualKey), character)));
}

namespace {

struct MouseTranslation {
    std::uint32_t windowsMessage;
    MessageType type;
    MouseButton button;
};

constexpr std::array kTranslations{
    MouseTranslation{WM_MOUSEMOVE, MessageType::MouseMoved, MouseButton::None},
    MouseTranslation{WM_LBUTTONDOWN, MessageType::Pressed, MouseButton::Left},
    MouseTranslation{WM_LBUTTONUP, MessageType::Released, MouseButton::Left},
    MouseTranslation{WM_LBUTTONDBLCLK, MessageType::Pressed, MouseButton::LeftDouble},
    MouseTranslation{WM_RBUTTONDOWN, MessageType::Pressed, MouseButton::Right},
    MouseTranslation{WM_RBUTTONUP, MessageType::Released, MouseButton::Right},
    MouseTranslation{WM_RBUTTONDBLCLK, MessageType::Pressed, MouseButton::RightDouble},
    MouseTranslation{WM_MBUTTONDOWN, MessageType::Pressed, MouseButton::Middle},
    MouseTranslation{WM_MBUTTONUP, MessageType::Released, MouseButton::Middle},
};

MouseTranslation translate(std::uint32_t windowsMessage) {
    const auto* const found = std::find_if(kTranslations.begin(), kTranslations.end(),
                                           [&](const auto& row) { return row.windowsMessage == windowsMessage; });
    if (found == kTranslations.end()) return {windowsMessage, MessageType::Pressed, MouseButton::None};
    return *found;
}

}  // namespace

void MouseInput::postMouseMessage(std::uint32_t position, std::uint32_t windowsMessage) {
    const auto [message, type, button] = translate(windowsMessage);
    const auto x = static_cast<std::int16_t>(position & 0xFFFF);
    const auto y = static_cast<std::int16_t>(position >> 16);
    application_.postToCurrentScene(SharedRef<SceneMessage>(new MouseMessage(type, button, x, y)));
}

}  // namespace grub
