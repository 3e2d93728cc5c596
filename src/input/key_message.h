#pragma once

#include <cstdint>

#include "scene_message.h"

namespace grub {

/// Keys as scenes know them. Every key that is not named here keeps the system's virtual-key code.
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

/// The code of a key that the system knows as `virtualKey`.
[[nodiscard]] KeyCode keyCodeOf(std::uint32_t virtualKey);

/// A key was pressed (again and again while it is held) or released.
struct KeyMessage final : SceneMessage, PoolAllocated<KeyMessage> {
    using PoolAllocated<KeyMessage>::operator new;
    using PoolAllocated<KeyMessage>::operator delete;

    /// The type is Pressed or Released.
    KeyMessage(MessageType messageType, KeyCode code, std::uint8_t keyCharacter)
        : SceneMessage(messageType, MessageSource::Keyboard), keyCode(code), character(keyCharacter) {}

    const KeyCode keyCode;
    /// What the key types without modifiers, letters in upper case; 0 when it types nothing.
    const std::uint8_t character;
};

}  // namespace grub
