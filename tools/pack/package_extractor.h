#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "package_contents.h"

namespace grub {

/// Whether a file of this name, "\" read as "/", stays below the directory it is extracted to: no absolute path, no
/// drive letter, no "..", no empty name.
[[nodiscard]] bool staysBelowDirectory(std::string_view name);

/// Writes every resource to a file of its name below `directory`, which is made if need be. Of two equal names the
/// first counts, as in the game. False, and a sentence in `fault`, when a name leaves the directory or an entry the
/// package (then nothing is written at all), or when a file cannot be written.
[[nodiscard]] bool extractPackage(const PackageContents& package, const std::filesystem::path& directory,
                                  std::string& fault);

}  // namespace grub
