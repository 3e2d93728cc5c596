#pragma once

#include <string>

#include "page_source.h"

namespace grub {

/// The description of an interface as the game reads it: a line for each layout, item and element.
std::string layoutText(const PageSource& source);

}  // namespace grub
