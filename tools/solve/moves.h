#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "key_events.h"
#include "world.h"

namespace grub {

/// What the hero can decide to do on a cell.
enum class Move : std::uint8_t { Left, Right, Up, Down, DigLeft, DigRight, Wait };

/// All moves, in the order in which the search tries them.
inline constexpr std::array kAllMoves{Move::Left,    Move::Right,    Move::Up,  Move::Down,
                                      Move::DigLeft, Move::DigRight, Move::Wait};

/// Game frames of a wait: as long as a walk over a cell.
inline constexpr int kWaitFrames = kCellSize / kHeroSpeed;

/// Whether a move digs, to either side.
[[nodiscard]] constexpr bool isDig(Move move) { return move == Move::DigLeft || move == Move::DigRight; }

/// Whether the hero stands exactly on a cell and can do what he is told: he does not fall and does not dig.
[[nodiscard]] bool canDecide(const World& world);
/// Whether a move would do something in a world where he can decide. A wait always does.
[[nodiscard]] bool isPossible(const World& world, Move move);
/// Plays a move with the real rules, until the next decision or the end of the attempt. Before a key that is not held
/// yet the hero stands still for `delay` game frames, as long as a player takes to react. Its key events are added to
/// `written` when that is not null.
void playMove(World& world, Move move, int delay, std::vector<KeyEvent>* written = nullptr);

/// A readable list: letter and count of each run of equal moves, as "R8 U3 z w2". z digs left, x digs right, w waits.
[[nodiscard]] std::string textOf(std::span<const Move> moves);

}  // namespace grub
