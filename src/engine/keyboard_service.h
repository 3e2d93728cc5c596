#pragma once

#include <cstdint>

namespace grub {

/// Turns the window's key messages into messages for the current scene. Window's thread.
class KeyboardService {
public:
    virtual ~KeyboardService() = default;
    /// `virtualKey` is the system's code of the key, `windowsMessage` WM_KEYDOWN (repeats too) or WM_KEYUP.
    virtual void postKeyMessage(std::uint32_t virtualKey, std::uint32_t windowsMessage) = 0;
};

}  // namespace grub
