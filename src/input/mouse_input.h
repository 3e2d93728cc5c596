#pragma once

#include "application_base.h"
#include "mouse_service.h"

namespace grub {

/// Posts a MouseMessage for every move, press and release. A message it does not know counts as a press of no button.
class MouseInput final : public MouseService {
public:
    /// The application must outlive the service.
    explicit MouseInput(ApplicationBase& application) : application_(application) {}

    void postMouseMessage(std::uint32_t position, std::uint32_t windowsMessage) override;

private:
    ApplicationBase& application_;
};

}  // namespace grub
