#pragma once

#include "command.h"

namespace grub {

/// The command trace; see playCommands().
[[nodiscard]] Command traceCommand();

}  // namespace grub
