#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "level_source.h"

namespace grub {

/// The block table as the package holds it, every line ended by CR LF, from its source. The reader of the game skips
/// what it does not understand without a word, so here a line that it would skip or misread is refused: a key with a
/// blank, a value that is no number, a block or a picture number that is defined twice or does not exist, a diggable
/// floor without pictures of breaking and growing back, an exit without a door. Empty, and `error` filled, then.
[[nodiscard]] std::optional<std::string> packBlockTable(std::string_view text, TextError& error);

}  // namespace grub
