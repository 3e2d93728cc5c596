#pragma once

#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "canvas.h"

namespace grub {

/// What lies around a frame when it is drawn.
enum class Ground {
    /// Nothing: a figure or a thing with smooth edges.
    Clear,
    /// The neighbouring cells: the drawing goes on beyond the edges, so that cells join.
    Joined
};

/// Which frame of a strip is wanted.
struct FrameOf {
    int index;
    int count;
    /// Name of the strip.
    std::string_view name = {};

    /// Share of the cycle, 0 up to, not including, 1.
    double phase() const { return static_cast<double>(index) / count; }
    /// 0 for the first frame, 1 for the last.
    double progress() const { return count > 1 ? static_cast<double>(index) / (count - 1) : 0; }
};

/// A strip that can be drawn: its name is the game's name of the file, without "data\gif\" and extension. Sizes in
/// pixels, of one frame.
struct StripDrawing {
    std::string_view name;
    int width;
    int frameHeight;
    int frames;
    Ground ground;
    void (*draw)(Canvas& canvas, FrameOf frame);
};

/// Gives clear pixels the colour of the nearest pixel that is not clear; alpha stays.
void spreadColours(PixelImage& image);

/// The strips of several tables, one table after another.
std::vector<StripDrawing> joined(std::initializer_list<std::span<const StripDrawing>> tables);

/// One frame of a strip. Clear pixels carry the colour of the nearest pixel that is not clear, so that scaling or
/// filtering never pulls in a foreign colour.
PixelImage renderFrame(const StripDrawing& strip, int frame);

/// All frames of a strip below one another.
PixelImage renderStrip(const StripDrawing& strip);

}  // namespace grub
