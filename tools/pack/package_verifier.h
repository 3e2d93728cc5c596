#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "package_files.h"

namespace grub {

/// A fault of one entry or, when `entry` is empty, of the whole package.
struct PackageFinding {
    std::string entry;
    std::string text;
    bool isWarning = false;  // the game can use the entry all the same
};

/// All faults of a package, in this order: its structure (counts, names, extents), what each resource holds, and what
/// its tables and levels need of each other.
[[nodiscard]] std::vector<PackageFinding> verifyPackage(const PackageContents& package);

/// One line that says what keeps the game from using a resource; empty when nothing does. It looks into pictures (BMP,
/// GIF, JPEG) and sounds (WAV, Ogg Vorbis), which it knows by the end of the name or by the first bytes, and into
/// tables (`.ini`). It passes all other resources.
[[nodiscard]] std::string contentFault(std::string_view name, std::span<const std::uint8_t> bytes);

/// One line about what is allowed but probably a mistake, in a resource without a `contentFault`; empty when there is
/// nothing: a picture of 32 bits whose alpha plane is all zero, as many programs write it, cannot be seen in the game;
/// a large WAV file.
[[nodiscard]] std::string contentWarning(std::span<const std::uint8_t> bytes);

}  // namespace grub
