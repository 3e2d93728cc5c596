#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "page_source.h"

namespace grub {

/// A call by which the game draws an item.
struct StateDraw {
    std::string item;
    int element = -1;  // -1: all
    int frame = 0;
    /// Pixels to the right, while its page slides.
    int dx = 0;
    /// Written in place of each text of the item; without it the item is drawn.
    std::optional<std::string> text;
};

/// What the player can see at a time: a layout with some of its items.
struct PageState {
    LinePlace place;
    std::string name;
    std::string interface;
    std::string layout;
    std::vector<StateDraw> draws;
    /// The table of the best is written too.
    bool rows = false;
};

/// Reads lines such as `state load make_m64 load_menu background continue_down:1 game_levels "Level 5"`. An item may be
/// followed by ":ELEMENT", ":ELEMENT:FRAME", then "@DX"; a text behind it is written instead. `rows` is the table of
/// the best. Nothing when a line is wrong.
std::optional<std::vector<PageState>> readPageStates(const std::string& file, const TextSource& texts,
                                                     std::string& error);

/// A line of the table of the best, as the game writes it.
struct ScoreRow {
    const char* name;
    const char* level;
    const char* score;
};
inline constexpr int kScoreRowsTop = 190;
inline constexpr int kScoreRowsPitch = 26;
inline constexpr int kNameColumn = 414;
inline constexpr int kLevelColumn = 515;
inline constexpr int kScoreColumn = 550;
/// A full table with the longest name, and one that is blank.
inline constexpr std::array kScoreRows{
    ScoreRow{"WWWWWW", "50", "999999"}, ScoreRow{"GRUNTY", "41", " 84200"}, ScoreRow{"POLKQN", "33", " 61050"},
    ScoreRow{"TETKO ", "27", " 40800"}, ScoreRow{"RUTH  ", "19", " 22450"}, ScoreRow{"      ", "14", " 15300"},
    ScoreRow{"KEYS42", "11", "  9900"}, ScoreRow{"WORMY ", " 9", "  7350"}, ScoreRow{"PIE   ", " 4", "  2100"},
    ScoreRow{"ZZZZZZ", " 1", "   100"},
};

/// Follows what each state draws: texts that lie on texts, and pictures that hide a part of one.
void checkStates(const PageSource& source, const std::vector<PageState>& states, std::vector<std::string>& faults);

}  // namespace grub
