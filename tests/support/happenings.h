#pragma once

#include <map>
#include <string>

#include "world.h"

namespace grub {

/// How often each event has been seen in played games: "end Won", "bonus 2" (kinds as numbers), "dig", "regrown",
/// "trapped 9", "escaped 9", "buried 9", "struck 9" and "returned 9" (enemies by their object codes).
using Happenings = std::map<std::string, int>;

/// Adds what has happened in the step from one world to the next.
void addHappenings(Happenings& seen, const World& before, const World& after);

}  // namespace grub
