#pragma once

#include <cstddef>
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

/// One frame of a strip. Clear pixels carry the colour of the nearest pixel that is not clear, so that scaling or
/// filtering never pulls in a foreign colour.
PixelImage renderFrame(const StripDrawing& strip, int frame);

/// All frames of a strip below one another.
PixelImage renderStrip(const StripDrawing& strip);

/// The strips laid out for looking at: the frames of a strip side by side on a dark ground, `zoom` times as large,
/// wrapped.
PixelImage contactSheet(const std::vector<const StripDrawing*>& strips, int zoom);

// ---- movement within a strip

/// 0 to 1 and smooth at both ends.
double eased(double t);

/// Sine of a share of a full turn.
double wave(double turns);

/// A value on a line of times and values (ascending times), smooth between them, the ends held.
struct Keyframe {
    double time;
    double value;
};
template <std::size_t N>
double keyed(const Keyframe (&keys)[N], double time) {
    if (time <= keys[0].time) return keys[0].value;
    for (std::size_t i = 1; i < N; ++i) {
        if (time > keys[i].time) continue;
        const double t = (time - keys[i - 1].time) / (keys[i].time - keys[i - 1].time);
        return keys[i - 1].value + (keys[i].value - keys[i - 1].value) * eased(t);
    }
    return keys[N - 1].value;
}

}  // namespace grub
