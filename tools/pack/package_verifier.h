#pragma once

#include <cstdint>
#include <filesystem>
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

/// The ends of the names of interface descriptions and of the glyph tables of fonts.
inline constexpr std::string_view kDescriptionEnding = "._i_2";
inline constexpr std::string_view kGlyphTableEnding = ".bmp.dat";

/// All faults of a package, in this order: its structure (counts, names, extents), what each resource holds, what its
/// tables and levels need of each other, and what its interface descriptions need. These name pictures of other
/// packages, which must lie in `directory`.
[[nodiscard]] std::vector<PackageFinding> verifyPackage(const PackageContents& package,
                                                        const std::filesystem::path& directory);

/// Appends what the interface descriptions of a package need and do not find: pictures and fonts in the interface's
/// package, sizes and frames as described, no more pictures and cells than the game shows.
void checkInterfaces(const PackageContents& package, const std::filesystem::path& directory,
                     std::vector<PackageFinding>& findings);

/// One line that says what keeps the game from using a resource; empty when nothing does. It looks into pictures (BMP,
/// GIF, JPEG) and sounds (WAV, Ogg Vorbis), which it knows by the end of the name or by the first bytes, and into
/// tables (`.ini`), interface descriptions and glyph tables. It passes all other resources.
[[nodiscard]] std::string contentFault(std::string_view name, std::span<const std::uint8_t> bytes);

/// One line about what is allowed but probably a mistake, in a resource without a `contentFault`; empty when there is
/// nothing: a picture of 32 bits whose alpha plane is all zero, as many programs write it, cannot be seen in the game;
/// a large WAV file.
[[nodiscard]] std::string contentWarning(std::span<const std::uint8_t> bytes);

}  // namespace grub
