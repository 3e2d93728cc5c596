#pragma once

#include "own_options.h"

namespace grub {

/// Sets up what lies below the game before it starts: where packages are, the icon, a script that plays by itself.
/// False after one line on standard error.
[[nodiscard]] bool prepareHost(const OwnOptions& options);

}  // namespace grub
