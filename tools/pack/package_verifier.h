#pragma once

#include <string>
#include <vector>

#include "package_contents.h"

namespace grub {

/// What is wrong with one entry or, when `entry` is empty, with the whole package.
struct PackageFinding {
    std::string entry;
    std::string text;
    bool isWarning = false;  // the game can use it all the same
};

/// Everything that is wrong, in directory order: the structure (counts, names, extents), then what the resources hold.
[[nodiscard]] std::vector<PackageFinding> verifyPackage(const PackageContents& package);

}  // namespace grub
