#pragma once

#include <span>
#include <string_view>

#include "words.h"

namespace grub {

/// A board to look at, with real words. The size of its picture in pixels.
struct BoardSample {
    std::string_view name;
    int width;
    int height;
    Fit (*draw)(Canvas& canvas);
};

/// Every kind of board in every state, and everything else that words stand on or beside.
std::span<const BoardSample> boardSamples();

}  // namespace grub
