#pragma once

#include <cstdint>

#include "block_pool.h"

namespace grub {

/// Where a message comes from.
enum class MessageSource : std::uint32_t { Window = 0, Keyboard = 1, Mouse = 2 };

/// What a message tells. Pressed and Released serve keys and mouse buttons alike: look at the source too.
enum class MessageType : std::uint32_t { CloseRequest = 1, Repaint = 2, Pressed = 10, Released = 11, MouseMoved = 20 };

/// What the window's thread tells a scene. Messages travel in a SharedRef and are not changed once they are posted.
struct SceneMessage : PoolAllocated<SceneMessage> {
    /// A message is complete from the start.
    SceneMessage(MessageType messageType, MessageSource messageSource) : type(messageType), source(messageSource) {}
    SceneMessage(const SceneMessage&) = delete;
    SceneMessage& operator=(const SceneMessage&) = delete;
    virtual ~SceneMessage() = default;

    const MessageType type;
    const MessageSource source;
};

}  // namespace grub
