#pragma once

namespace grub {

/// What the shell shows.
enum class ShellMode : int {
    Start = 0,
    Options = 3,
    Load = 4,
    Scores = 5,
    NameEntry = 6,
    Exit = 7,
    Help = 8,
    Opening = 10,      ///< the first picture, while music and pages are loaded
    OpeningEnd = 11,   ///< the first picture goes
    FirstComic = 12,   ///< before a new game
    SecondComic = 13,  ///< after the first comic
    MiddleComic = 14,  ///< after the first world
    FinalComic = 15,   ///< after the last level
    QuickExit = 23,
};

/// Whether the mode shows a page with the column of buttons: only these hear the mouse.
[[nodiscard]] constexpr bool isMenuPage(ShellMode mode) { return mode < ShellMode::Opening; }

/// Whether the mode shows a picture that fills the screen, before, between or after games.
[[nodiscard]] constexpr bool isPicture(ShellMode mode) { return !isMenuPage(mode) && mode != ShellMode::QuickExit; }

}  // namespace grub
