#pragma once

#include <cstdint>

#include "application_base.h"
#include "engine_services.h"
#include "scene.h"

namespace grub {

/// Keys as scenes know them. Every other key keeps the system's virtual-key code.
enum KeyCode : std::uint32_t {
    KeyUp = 0,
    KeyDown = 1,
    KeyLeft = 2,
    KeyRight = 3,
    KeySpace = 4,
    KeyEnter = 0x10001,
    KeyEscape = 0x10003,
    KeyA = 0x10006,
    KeyB = 0x10007,
    KeyC = 0x10008,
    KeyX = 0x58,
    KeyZ = 0x5A,
};

/// The code of the key with this virtual-key code of the system.
[[nodiscard]] KeyCode keyCodeOf(std::uint32_t virtualKey);

/// A key was pressed or released. A held key is pressed again and again.
struct KeyMessage final : SceneMessage, PoolAllocated<KeyMessage> {
    using PoolAllocated<KeyMessage>::operator new;
    using PoolAllocated<KeyMessage>::operator delete;

    /// The type is Pressed or Released.
    KeyMessage(MessageType messageType, KeyCode code, std::uint8_t keyCharacter)
        : SceneMessage(messageType, MessageSource::Keyboard), keyCode(code), character(keyCharacter) {}

    const KeyCode keyCode;
    /// What the key types without modifiers, letters in upper case. 0 when it types nothing.
    const std::uint8_t character;
};

/// The button of a mouse message. The second press of a double click has a code of its own; its release has not. Some
/// values equal those of keys, so look at the message's source first.
enum class MouseButton : std::uint32_t {
    None = 10,
    Left = 11,
    Right = 12,
    Middle = 13,
    LeftDouble = 14,
    RightDouble = 15,
};

/// The mouse moved, or a button was pressed or released.
struct MouseMessage final : SceneMessage, PoolAllocated<MouseMessage> {
    using PoolAllocated<MouseMessage>::operator new;
    using PoolAllocated<MouseMessage>::operator delete;

    /// The type is Pressed, Released or MouseMoved.
    MouseMessage(MessageType messageType, MouseButton messageButton, std::int16_t cursorX, std::int16_t cursorY)
        : SceneMessage(messageType, MessageSource::Mouse), button(messageButton), x(cursorX), y(cursorY) {}

    const MouseButton button;
    /// Always 0 so far.
    const std::uint8_t flag = 0;
    /// Pixels of the 800 x 600 picture. Outside of it they are negative or larger.
    const std::int16_t x;
    const std::int16_t y;
};

/// Posts a KeyMessage to the current scene for every press and release. Remembers nothing: the scenes tell a repeat
/// from a press.
class KeyboardInput final : public KeyboardService {
public:
    /// The application must outlive the service.
    explicit KeyboardInput(ApplicationBase& application) : application_(application) {}

    void postKeyMessage(std::uint32_t virtualKey, std::uint32_t windowsMessage) override;

private:
    ApplicationBase& application_;
};

/// Posts a MouseMessage to the current scene for every move, press and release. An unknown message counts as a press of
/// no button.
class MouseInput final : public MouseService {
public:
    /// The application must outlive the service.
    explicit MouseInput(ApplicationBase& application) : application_(application) {}

    void postMouseMessage(std::uint32_t position, std::uint32_t windowsMessage) override;

private:
    ApplicationBase& application_;
};

}  // namespace grub
