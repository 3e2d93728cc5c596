#pragma once

#include "words.h"

namespace grub {

/// One line of plump gold letters that hang free on the wall. The name of the game is written in two colours, and its
/// letters dance. The measures come from the words as for drawWords.
[[nodiscard]] Fit drawTitle(Canvas& canvas, const Words& words);

}  // namespace grub
