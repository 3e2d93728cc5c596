#include "keyboard_input.h"

#include <windows.h>

#include "key_message.h"

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

}  // namespace grub
