#pragma once

#include <optional>
#include <string>

#include "recorded_game.h"
#include "world.h"

namespace grub {

/// Whether a world that has played a frame has come to the end of the game, its own or the recorded one.
[[nodiscard]] bool isOver(const RecordedGame& game, const World& world);

/// What a world, after a frame, shows otherwise than the game, which is complete: the end, or the state where the game
/// has one. A line that begins with the frame; nothing when all agrees.
[[nodiscard]] std::optional<std::string> differenceAt(const RecordedGame& game, const World& world);

/// The recorded field of this frame, or of the last one before it that has one, beside that of the world; with a
/// caption each.
[[nodiscard]] std::string drawBoth(const RecordedGame& game, const World& world);

/// Plays a game, which is complete, on a world that has been settled, until it is over or something differs. True when
/// all agrees; else the world stands where it differs.
bool replay(const RecordedGame& game, World& world);

}  // namespace grub
