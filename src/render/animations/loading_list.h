#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "renderer.h"

namespace grub {

/// Places in the animation table: ids are 0 to 399. The list below uses 0 to 334.
inline constexpr int kAnimationSlots = 400;
/// The strips come in two lists: the first holds what every level needs, the second the enemies and the later worlds.
inline constexpr int kLoadingLists = 2;
inline constexpr int kLoadingSteps = 8;
/// The sprite number of an entry that the block table cannot name.
inline constexpr int kNoSpriteNumber = -1;

/// Where the data package has its picture files.
inline constexpr std::string_view kPictureFolder = "data\\gif\\";

/// One strip of the animation table.
struct LoadEntry {
    /// `Strip`: a strip with a frame height of its own. `Block`: a strip of the map, with frames of 64 x 64 pixels.
    enum class Kind : std::uint8_t { Strip, Block };

    int id;                      ///< place in the animation table
    std::string_view stem;       ///< file below `kPictureFolder` without its extension
    Kind kind;                   ///< which table operation takes it
    std::uint16_t frameHeight;   ///< pixels
    TextureTransform transform;  ///< Identity, or FlipHorizontal for the twin that looks the other way
    int spriteNumber;            ///< the number by which the block table names it, or `kNoSpriteNumber`
    Colour colourKey;            ///< becomes transparent when the picture file has no alpha plane

    /// Name of the picture file in the data package.
    [[nodiscard]] std::string path() const;
};

/// All entries in loading order.
[[nodiscard]] std::span<const LoadEntry> loadingList();
/// The entries of one step; list 0 or 1, step 0 to 7.
[[nodiscard]] std::span<const LoadEntry> loadingStep(int list, int step);

}  // namespace grub
