#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "block_palette.h"
#include "level_source.h"

namespace grub {

/// The level that a source describes, as the bytes of a `.lvl` file of version 4. Empty, and `error` filled, when the
/// source is none or when the game could not play the level.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> compileLevel(std::string_view text, const BlockPalette& palette,
                                                                    TextError& error);

}  // namespace grub
