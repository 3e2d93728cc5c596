#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "drawn_world.h"

namespace grub {

/// A play on a drawn map and what some of its frames must show.
struct Scenario {
    const char* what;
    /// The rows of the map from the top, with '/' between them; see Drawing.
    const char* map;
    /// See DrawnWorld::script.
    const char* keys;
    /// "FRAME: NAME=VALUE ...; FRAME: ...", frames in rising order. The values as they are after that frame:
    ///
    ///     x y           Grub's place in pixels
    ///     looks digs    left or right; yes or no
    ///     shows half    his animation and its frame, as "76:1"; yes while he is half transparent
    ///     map           the field as DrawnWorld::drawn, with '/' between its rows
    ///     far0          the distances from him in row 0, as "0,1,."; . for a cell that was not reached
    ///     end           no, or the cause: Dog Lady Rat Pit Won Quit
    ///     score keys lives draws bonuses     numbers: keys and bonuses that lie, draws from the generator
    ///     at1 is1 wants1 shows1 speed1 timer1     the first enemy: its place as "64,0"; roams, trapped, climbs or
    ///     dead;
    ///                   left, right, up, down, nowhere or undecided; at2 and so on are those of the second
    ///     is1,0 shows1,0     the floor in column 1, row 0: whole, broken, waits or regrows; its animation and frame
    ///     break key door ...     the frames in which a sound was started until now, as "1,5"
    const char* wanted;
    WorldStart start = {};
    /// Frames of every strip.
    int strip = kDrawnFrames;
};

/// The drawing of rows with '/' between them.
[[nodiscard]] Drawing drawingOf(std::string_view rows);

/// Plays the scenarios one after the other. A failure names the scenario, the frame and the value.
void expectScenarios(std::initializer_list<Scenario> scenarios);

/// A start with this seed in the first level of the game.
[[nodiscard]] WorldStart seeded(std::uint32_t seed);

/// A start with the smallest seed that first draws these quarters of the generator's range: as a direction left, right,
/// up, down (0 also takes a ladder); 4 is what the division leaves over.
[[nodiscard]] WorldStart drawing(std::initializer_list<int> quarters);

/// Lets all enemies of an attempt act, so many times.
void update(Attempt& attempt, int times);

}  // namespace grub
