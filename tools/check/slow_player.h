#pragma once

#include "animation_frames.h"
#include "level_map.h"
#include "recorded_game.h"

namespace grub {

/// Whether a win comes about when its keys are pressed by a player who knows the way but reacts late. He holds each key
/// as long as the win does; from letting go of one he needs `delay` game frames until he presses the next. So he falls
/// behind, and where the win pauses he makes up for it; he is never earlier than the win.
[[nodiscard]] bool winsWithDelay(const RecordedGame& win, const LevelMap& map, const AnimationFrameCounts& counts,
                                 int delay);

}  // namespace grub
