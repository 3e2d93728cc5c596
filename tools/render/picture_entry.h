#pragma once

#include <string_view>

#include "canvas.h"

namespace grub {

/// What lies around a picture when it is drawn.
enum class Ground {
    /// Nothing: a figure or a thing with smooth edges.
    Clear,
    /// The neighbouring cells: the drawing goes on beyond the edges, so that cells join.
    Joined
};

/// Which picture of a strip is wanted.
struct FrameOf {
    int index;
    int count;
    /// Name of the strip.
    std::string_view name = {};

    /// Share of the cycle, 0 up to, not including, 1.
    double phase() const { return static_cast<double>(index) / count; }
    /// 0 for the first picture, 1 for the last.
    double progress() const { return count > 1 ? static_cast<double>(index) / (count - 1) : 0; }
};

/// A strip that can be drawn: its name is the game's name of the file, without "data\gif\" and extension.
struct PictureEntry {
    std::string_view name;
    int width;
    int frameHeight;
    int frames;
    Ground ground;
    void (*draw)(Canvas& canvas, FrameOf frame);
};

}  // namespace grub
