#pragma once

#include <string>
#include <vector>

#include "canvas.h"
#include "hall_set.h"
#include "words.h"

namespace grub {

/// A scene of play on a sheet of the help, drawn pixel for pixel with the pictures of the game. A row is a text of
/// signs, one a cell, with a blank between two; content/pages/README.md lists them. Floors and pipes go on beyond the
/// left and right edge.
struct Stage {
    Hall world = Hall::Turma;
    std::vector<std::string> rows;
};

/// What is wrong with the rows: the sign that nobody knows, or the row of another length; empty when they are good.
std::string faultOf(const Stage& stage);

/// Draws the scene with its upper left corner at `corner`, and an ink line around it. Where the last row has no floor,
/// a strip of floor of 16 px is added below. Says whether the names of bonuses fit.
[[nodiscard]] Fit drawStage(Canvas& canvas, const Stage& stage, Point corner);

}  // namespace grub
