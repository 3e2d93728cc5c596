#pragma once

#include "figure.h"

namespace grub {

/// What an enemy's eyes tell: it hunts, it is startled, or it has hit the bottom of a hole.
enum class Mood { Angry, Startled, Dizzy };

/// Width of the line round a whole enemy, added to the lines of its parts.
inline constexpr double kEnemyOutline = 0.5;

/// The spiral of a dizzy eye.
void drawSpiral(Canvas& canvas, Point at, double radius, Rgb colour);

/// Three stars on their way round a head; `turn` is a share of a full turn.
void drawDizzyStars(Canvas& canvas, Point centre, double rx, double ry, double turn);

}  // namespace grub
