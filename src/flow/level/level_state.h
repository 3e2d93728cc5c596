#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace grub {

/// What the level scene does in each game frame.
enum class LevelState : int {
    Intro = 0,      ///< the level is shown while the shutter opens
    Playing = 1,    ///< the world steps
    Ended = 2,      ///< the attempt is over, the shutter closes
    EndScreen = 3,  ///< the picture of the end, until a key is pressed
    EndFade = 4,    ///< the picture of the end goes
    GameMenu = 6,
    Quit = 7,  ///< the player has chosen to leave
    SaveMenu = 8,
    LoadMenu = 10,
    OpenSaveMenu = 11,
    OpenLoadMenu = 13,
    OpenGameMenu = 14,
    GameOver = 16,   ///< the picture of the end of the last life
    LoadSlot = 18,   ///< loads a slot when the strips are there
    FirstLoad = 22,  ///< builds the level when the strips are there
};

/// Whether a dialog lies over the level.
[[nodiscard]] constexpr bool isDialog(LevelState state) {
    return state == LevelState::GameMenu || state == LevelState::SaveMenu || state == LevelState::LoadMenu;
}

/// A set of states: bit n stands for the state with number n, `kShellBit` for leaving the scene.
using LevelStateSet = std::uint32_t;
inline constexpr LevelStateSet kShellBit = 1U << 31;

/// The set of this state alone.
[[nodiscard]] constexpr LevelStateSet bitOf(LevelState state) { return 1U << static_cast<unsigned>(state); }

/// A state and those that may follow it.
struct LevelStateRow {
    LevelState state;
    std::string_view name;
    LevelStateSet leftTo;
};

/// The whole state machine, requests to close the window included. The README of the level scene draws it.
inline constexpr std::array kLevelStates = [] {
    using enum LevelState;
    constexpr auto set = [](auto... states) { return (bitOf(states) | ...); };
    return std::array{
        LevelStateRow{Intro, "Intro", set(Playing, Quit)},
        LevelStateRow{Playing, "Playing", set(Ended, GameMenu)},
        LevelStateRow{Ended, "Ended", set(EndScreen, Intro) | kShellBit},
        LevelStateRow{EndScreen, "EndScreen", set(EndFade, GameOver) | kShellBit},
        LevelStateRow{EndFade, "EndFade", set(Intro) | kShellBit},
        LevelStateRow{GameMenu, "GameMenu", set(Playing, OpenSaveMenu, OpenLoadMenu, Quit)},
        LevelStateRow{Quit, "Quit", set(Ended)},
        LevelStateRow{SaveMenu, "SaveMenu", set(OpenGameMenu, Quit)},
        LevelStateRow{LoadMenu, "LoadMenu", set(OpenGameMenu, LoadSlot, Ended, Quit)},
        LevelStateRow{OpenSaveMenu, "OpenSaveMenu", set(SaveMenu, Quit)},
        LevelStateRow{OpenLoadMenu, "OpenLoadMenu", set(LoadMenu, Quit)},
        LevelStateRow{OpenGameMenu, "OpenGameMenu", set(GameMenu, Quit)},
        LevelStateRow{GameOver, "GameOver", set(EndFade) | kShellBit},
        LevelStateRow{LoadSlot, "LoadSlot", set(Intro, Quit) | kShellBit},
        LevelStateRow{FirstLoad, "FirstLoad", set(Intro) | kShellBit},
    };
}();

}  // namespace grub
