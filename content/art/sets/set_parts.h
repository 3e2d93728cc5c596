#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "canvas.h"

namespace grub {

// What the sets of several pages are made of. Lengths in pixels of the page.

/// A thing of the halls, `scale` times as large as in play: a frame of that strip, its upper left corner at `corner`.
/// See hallStrip for a name that no hall has.
void drawPiece(Canvas& canvas, std::string_view name, Point corner, double scale = 1, int frame = 0);

/// An even change of colour from the upper edge of the area to its lower one.
void drawGradient(Canvas& canvas, const Rect& area, Rgb top, Rgb bottom);

/// A soft beam of light from a lamp at `from`, where it is `fromWidth` wide, to `to`, where it is `toWidth` wide. It is
/// strongest at the lamp, with `strength` 0 to 1, and has faded away at `to`.
void drawBeam(Canvas& canvas, Point from, double fromWidth, Point to, double toWidth, Rgb colour, float strength);

/// A block or clod that flies: an uneven stone about `centre`, turned by `angle`.
void drawRubblePiece(Canvas& canvas, Point centre, double width, double height, double angle, Rgb colour);

/// A translucent ribbon through the points of a curve (a start, then triples of handle, handle, end) that is thin at
/// its ends: steam, smoke. `width` in the middle.
void drawRibbon(Canvas& canvas, std::span<const Point> points, double width, Rgb colour, float strength);

/// Stars of the night sky over the area: places and sizes follow from `seed`.
void drawStars(Canvas& canvas, const Rect& area, int count, std::uint32_t seed);

/// A full moon in a little light of its own.
void drawMoon(Canvas& canvas, Point centre, double radius);

}  // namespace grub
