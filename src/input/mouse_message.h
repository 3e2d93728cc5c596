#pragma once

#include <cstdint>

#include "scene_message.h"

namespace grub {

/// What the mouse did. The second press of a fast pair arrives as a double click instead of a press; its release is the
/// ordinary one. Some values equal those of keys, so look at the message's source first.
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
    /// No button has a flag so far.
    const std::uint8_t flag = 0;
    /// Client pixels of the 800 x 600 picture; outside of it also negative or larger.
    const std::int16_t x;
    const std::int16_t y;
};

}  // namespace grub
