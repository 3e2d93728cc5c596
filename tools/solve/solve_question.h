#pragma once

#include "command.h"
#include "play_content.h"
#include "recorded_game.h"
#include "search.h"
#include "world.h"

namespace grub {

/// What the solver is asked.
struct SolveQuestion {
    RecordedGame game;  ///< the attempt that shall be won, without keys
    World world;        ///< settled
    SearchRules rules;
};

/// The question of a command line. Ends the command when the level cannot be played, or an option does not fit it.
[[nodiscard]] SolveQuestion questionOf(const Arguments& arguments, PlayContent& content);

}  // namespace grub
