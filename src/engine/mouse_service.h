#pragma once

#include <cstdint>

namespace grub {

/// Turns the window's mouse messages into messages for the current scene. Window's thread.
class MouseService {
public:
    virtual ~MouseService() = default;
    /// `position` holds client pixels, x in the low and y in the high 16 bits, both signed.
    virtual void postMouseMessage(std::uint32_t position, std::uint32_t windowsMessage) = 0;
};

}  // namespace grub
