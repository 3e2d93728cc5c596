#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "page_source.h"

namespace grub {

/// Removes the files of a folder that the interface does not show, so that they do not stay in its package. `faults`
/// takes a line for each of its pictures that is missing or has another size.
void tidyPictures(const PageSource& source, const std::filesystem::path& folder, std::vector<std::string>& faults);

}  // namespace grub
