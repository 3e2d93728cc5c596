#pragma once

#include <span>
#include <string_view>

#include "words.h"

namespace grub {

/// Boards to look at, with real words. The size of the picture is in pixels.
struct BoardSample {
    std::string_view name;
    int width;
    int height;
};

/// Every kind of board in every state, and everything else that words stand on or beside.
std::span<const BoardSample> boardSamples();

/// Draws a sample on a canvas of its size, and says whether its words fit.
[[nodiscard]] Fit drawSample(Canvas& canvas, const BoardSample& sample);

}  // namespace grub
