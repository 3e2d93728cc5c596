#pragma once

#include <array>

#include "shell_mode.h"

namespace grub {

/// The buttons of the menu's left column, from top to bottom. Each leads to a page.
enum class MenuButton : int { Start = 0, Load = 1, Options = 2, Scores = 3, Help = 4, Exit = 5 };

/// A button of the column: its element in every page, which the mouse hits, and the mode of its page.
struct ColumnButton {
    const char* element;
    ShellMode mode;
};

/// By the number of the button.
inline constexpr std::array kColumn{
    ColumnButton{"start_down", ShellMode::Start},     ColumnButton{"load_down", ShellMode::Load},
    ColumnButton{"options_down", ShellMode::Options}, ColumnButton{"score_down", ShellMode::Scores},
    ColumnButton{"help_down", ShellMode::Help},       ColumnButton{"exit_down", ShellMode::Exit},
};

/// The row of a button.
[[nodiscard]] constexpr const ColumnButton& rowOf(MenuButton button) {
    return kColumn[static_cast<std::size_t>(button)];
}

}  // namespace grub
