#pragma once

#include <string>
#include <vector>

#include "page_source.h"

namespace grub {

/// What is wrong with an interface, a line each: what the game would refuse or miss, and what a player could not read
/// or hit. What drawing alone can tell, whether words fit, is not here.
std::vector<std::string> pageFaults(const PageSource& source);

}  // namespace grub
