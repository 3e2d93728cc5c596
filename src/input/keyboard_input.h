#pragma once

#include "application_base.h"
#include "keyboard_service.h"

namespace grub {

/// Posts a KeyMessage for every press and release. It remembers nothing: telling a repeat from a press is up to scenes.
class KeyboardInput final : public KeyboardService {
public:
    /// The application must outlive the service.
    explicit KeyboardInput(ApplicationBase& application) : application_(application) {}

    void postKeyMessage(std::uint32_t virtualKey, std::uint32_t windowsMessage) override;

private:
    ApplicationBase& application_;
};

}  // namespace grub
