#pragma once

#include <optional>
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

/// The first row that has an unknown sign, no single blank between two, or another length than the first; null when all
/// are good. There must be a row.
std::optional<std::string> faultOf(const Stage& stage);

/// Draws the scene with its upper left corner at `corner`, and an ink line around it. Where the last row has no floor,
/// a strip of floor of 16 px is added below. Says whether the names of bonuses fit.
[[nodiscard]] Fit drawStage(Canvas& canvas, const Stage& stage, Point corner);

}  // namespace grub
