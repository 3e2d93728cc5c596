#include "level_table.h"

#include <cstdio>

#include "difficulty.h"
#include "level_list.h"
#include "measure_table.h"

namespace grub {

namespace {

std::string row(const std::vector<std::string>& cells) {
    std::string line = "|";
    for (const std::string& cell : cells) line += " " + cell + " |";
    return line + "\n";
}

std::string oneDecimal(double value) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.1f", value);
    return text;
}

std::vector<std::string> cellsOf(const BookLevel& entry) {
    std::vector<std::string> cells{std::to_string(entry.index), entry.level.source.title};
    for (const Measure& measure : measuresOf(entry.level, entry.win)) cells.push_back(measure.text);
    const auto difficulty = difficultyOf(entry);
    cells.push_back(difficulty ? oneDecimal(*difficulty) : "-");
    return cells;
}

/// The rows above the levels: headings, and how each column is aligned.
std::string headOf(const BookLevel& any) {
    std::vector<std::string> headings{"index", "title"};
    for (const Measure& measure : measuresOf(any.level, any.win)) headings.push_back(measure.heading);
    headings.emplace_back("difficulty");
    std::vector<std::string> rules(headings.size(), "--:");
    rules[1] = "---";
    return row(headings) + row(rules);
}

constexpr std::string_view kExplanation =
    R"(# All levels and their measures

Made from the root of the project, after a build, by

    build/release/bin/grubtool level table content/levels docs/levels.md --data build/release/data

pictures and all; run it again when a level or a win has changed. `ninja -C build/release level_book` draws every level
with the way of its win into `build/release/level_book/`.

`in reach` and `visited` are shares of the open cells: where Grub could get at all, and where the recorded win goes.
`wins` counts the recorded wins; a second takes the keys in another order or digs other cells, and what follows is of
the first. `closest` is how near an enemy comes in it, in pixels (64 to a cell), along the longer axis. `late` says
whether the same keys win (W) when they come 2, 4, 8 and 16 game frames late, `seeds` with how many of 8 other seeds
they win. `bot` is a player who presses these keys, but needs 0, 5, 10 and 15 game frames from letting go of one to the
next; he may take either win. What needs a recorded win is `-` without one; so is `closest` in a level without enemies.

Difficulty is the sum of
)";

/// What stands behind the rule of difficulty.
constexpr std::string_view kCaution =
    R"(
It judges the recorded win, so a level whose win takes a long way counts as harder than it may be. In the pictures a bar
is a level, and the line is the mean of up to five neighbours.
)";

}  // namespace

std::string curveFile(const std::string& name, std::string_view world) {
    return name + "-" + std::string(world) + ".png";
}

std::string worldTitle(std::string_view world) { return "Difficulty in " + std::string(world); }

std::string levelTable(const std::vector<BookLevel>& book, const std::string& name) {
    std::string text = std::string(kExplanation) + std::string(kDifficultyRule) + std::string(kCaution);
    for (const LevelWorld& world : kLevelWorlds) {
        std::string rows;
        bool hasWin = false;
        for (const BookLevel& entry : book) {
            if (worldOfLevel(entry.index).name != world.name) continue;
            if (rows.empty()) rows = headOf(entry);
            rows += row(cellsOf(entry));
            hasWin = hasWin || entry.win;
        }
        if (rows.empty()) continue;
        text += "\n## " + std::string(world.name) + "\n\n";
        if (hasWin) text += "![" + worldTitle(world.name) + "](" + curveFile(name, world.name) + ")\n\n";
        text += rows;
    }
    return text;
}

}  // namespace grub
