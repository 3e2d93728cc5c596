#pragma once

#include <string>

#include "command.h"

namespace grub {

/// The block table of a level: the one that `--blocks` gives, else the nearest typeblok.ini in the level's folder or
/// above. If there is none, the command fails.
[[nodiscard]] std::string blocksFor(const Arguments& arguments, const std::string& level);

}  // namespace grub
