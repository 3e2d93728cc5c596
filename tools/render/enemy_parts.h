#pragma once

#include "canvas.h"
#include "hero_drawing.h"

namespace grub {

/// What an enemy's eyes tell: it hunts, it is startled, or it has hit the bottom of a hole.
enum class Mood { Angry, Startled, Dizzy };

/// Width of the line round a whole enemy, added to the lines of its parts.
inline constexpr double kEnemyOutline = 0.5;

/// Pixels an enemy covers while a strip of eight pictures plays once, and from one picture to the next.
inline constexpr double kEnemyCycle = 64;
inline constexpr double kEnemyPace = 8;

/// Row of a pipe's axis in its cell.
inline constexpr double kPipeRow = 10;

/// Drawings face right; files with a mirrored twin face left.
Canvas::Placement turnedLeft(Canvas& canvas);

/// `squash` shorter and as much wider, the ground staying where it is.
Canvas::Placement squashed(Canvas& canvas, double squash);

/// The spiral of a dizzy eye.
void drawSpiral(Canvas& canvas, Point at, double radius, Rgb colour);

/// Three stars on their way round a head; `turn` is a share of a full turn.
void drawDizzyStars(Canvas& canvas, Point centre, double rx, double ry, double turn);

/// A hand or paw on something that passes downwards at an enemy's pace: the row is `top` at the start of its hold,
/// which lasts `duty` of the cycle of `length` pixels, then it goes back up.
double heldRow(double phase, double length, double duty, double top);

}  // namespace grub
