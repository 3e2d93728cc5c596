#pragma once

#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "level_file.h"
#include "level_loader.h"
#include "level_map.h"
#include "world_random.h"

namespace grub {

/// A map drawn in characters, a string for each row. Cells may stand apart ("@ . #") or close ("@.#").
///
///     @ Grub   . nothing   # solid   = diggable floor   H ladder   h hidden ladder   - pipe   k key   E exit
///     s spawn point   S one inside a floor   d dog   D dog on a ladder   l lady   r rat   + heart   ~ drops
///
/// A drawing of a world also has _ for a floor that is broken.
struct Drawing {
    std::vector<std::string> rows;

    /// Blanks between cells are left out.
    Drawing(std::initializer_list<std::string_view> lines);
    explicit Drawing(std::vector<std::string> lines);

    friend bool operator==(const Drawing&, const Drawing&) = default;
    /// Two pictures of a failed comparison stand under each other.
    friend void PrintTo(const Drawing& drawing, std::ostream* out);
};

/// The level file of a drawing, for the blocks of `drawnBlockTable`.
[[nodiscard]] LevelFile drawnLevel(const Drawing& drawing);

/// The block table of drawn levels: floors break with animation 83 and grow back with 84, hidden ladders appear as
/// picture 5, exits open with animation 99.
[[nodiscard]] std::string drawnBlockTable();

/// The map of a drawing, built the way the game builds it.
[[nodiscard]] LevelMap mapFrom(const Drawing& drawing);

/// A level drawn by chance, the same for the same state of the generator: storeys with holes in their floors, ladders,
/// pipes, walls, keys, an exit, enemies and spawn points in any mixture, within the limits of a level. A thicket has up
/// to eight times the ladders and no storeys: ways meet again and again, and a plain fill of its distances takes long.
[[nodiscard]] Drawing drawingByChance(int width, int height, bool isThicket, WorldRandom& random);

}  // namespace grub
