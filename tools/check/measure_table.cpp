#include "measure_table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <span>

#include "enemy_traits.h"
#include "relaxed_ways.h"
#include "rules.h"

namespace grub {

namespace {

int openCells(const LevelMap& map) {
    int count = 0;
    eachCellOf(map, [&](CellPosition at) { count += map.isPassable(at.x, at.y, View::Physical) ? 1 : 0; });
    return count;
}

/// Of the open cells, which the hero can reach by walking at some time of an attempt.
int cellsInReach(const LevelMap& map) {
    const CellPosition start = map.heroStart();
    const CellSet reached = reachableFrom(map, {&start, 1}, {.digs = true, .isOpen = true});
    int count = 0;
    eachCellOf(
        map, [&](CellPosition at) { count += reached.has(at) && map.isPassable(at.x, at.y, View::Physical) ? 1 : 0; });
    return count;
}

std::string percent(int part, int whole) { return whole == 0 ? "-" : std::to_string(100 * part / whole) + "%"; }

std::string seconds(int frames) {
    const int tenths = frames * kGameFrameMs / 100;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::string marks(std::span<const bool> wins) {
    std::string text;
    for (const bool won : wins) text += won ? 'W' : '-';
    return text;
}

/// A column of the table: its heading, its width, and what it says of a level.
struct Facts {
    const CheckedLevel& level;
    const std::optional<WinMeasures>& win;
    int open;
};
struct Column {
    const char* heading;
    int width;
    bool needsWin;
    std::string (*text)(const Facts&);
};

const std::array kColumns{
    Column{"cells", 8, false,
           [](const Facts& f) {
               return std::to_string(f.level.map.width()) + "x" + std::to_string(f.level.map.height());
           }},
    Column{"keys", 5, false, [](const Facts& f) { return std::to_string(f.level.map.keysRemaining()); }},
    Column{"enemies", 8, false, [](const Facts& f) { return std::to_string(enemiesOf(f.level.map)); }},
    Column{"in reach", 9, false, [](const Facts& f) { return percent(cellsInReach(f.level.map), f.open); }},
    Column{"wins", 5, true, [](const Facts& f) { return std::to_string(f.win->recordedWins); }},
    Column{"win s", 7, true, [](const Facts& f) { return seconds(f.win->frames); }},
    Column{"digs", 5, true, [](const Facts& f) { return std::to_string(f.win->digs); }},
    Column{"visited", 8, true, [](const Facts& f) { return percent(f.win->cellsVisited, f.open); }},
    Column{"closest", 8, true,
           [](const Facts& f) { return f.win->closestEnemy ? std::to_string(*f.win->closestEnemy) : "-"; }},
    Column{"late", 5, true, [](const Facts& f) { return marks(f.win->winsLate); }},
    Column{"bot", 5, true, [](const Facts& f) { return marks(f.win->winsSlowly); }},
    Column{"seeds", 6, true,
           [](const Facts& f) { return std::to_string(f.win->seedsWon) + "/" + std::to_string(kOtherSeeds); }},
};
constexpr int kNameWidth = 16;

std::string textOf(const Column& column, const Facts& facts) {
    return column.needsWin && !facts.win ? "-" : column.text(facts);
}

std::string padded(const std::string& text, int width) {
    const auto size = static_cast<std::size_t>(std::abs(width));
    const std::string blanks(size > text.size() ? size - text.size() : 0, ' ');
    return width < 0 ? text + blanks : blanks + text;
}

}  // namespace

int enemiesOf(const LevelMap& map) {
    return static_cast<int>(
        std::ranges::count_if(map.objects(), [](const LevelObject& object) { return isEnemy(object.code); }));
}

std::string measureHeading() {
    std::string line = padded("level", -kNameWidth);
    for (const Column& column : kColumns) line += padded(column.heading, column.width);
    return line + "\n";
}

std::string measureRow(const std::string& name, const CheckedLevel& level, const std::optional<WinMeasures>& win) {
    const Facts facts{level, win, openCells(level.map)};
    std::string line = padded(name, -kNameWidth);
    for (const Column& column : kColumns) line += padded(textOf(column, facts), column.width);
    return line + "\n";
}

std::vector<Measure> measuresOf(const CheckedLevel& level, const std::optional<WinMeasures>& win) {
    const Facts facts{level, win, openCells(level.map)};
    std::vector<Measure> measures;
    measures.reserve(kColumns.size());
    for (const Column& column : kColumns) measures.push_back({column.heading, textOf(column, facts)});
    return measures;
}

}  // namespace grub
