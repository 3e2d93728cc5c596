#include "solve_question.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

#include "level_list.h"
#include "level_source.h"

namespace grub {

namespace {

/// Where the game is written, or would be.
std::filesystem::path gamePath(const Arguments& arguments) {
    return std::filesystem::absolute(arguments.has("--out") ? arguments.text("--out") : "win.game");
}

/// The attempt that shall be won; its level is named as the game file needs it.
RecordedGame attemptAt(const Arguments& arguments) {
    const auto folder = gamePath(arguments).parent_path();
    if (!std::filesystem::is_directory(folder)) failWith(kCannotPlay, folder.string() + ": no such folder");
    RecordedGame game;
    const std::string level = arguments.text("LEVEL");
    const auto number = numberIn<std::size_t>(level);
    if (number && *number >= 1 && *number <= kLevelCount) {
        game.level = kLevelNames[*number - 1];
        game.start.levelIndex = static_cast<int>(*number) - 1;
    } else {
        game.level = std::filesystem::absolute(level).lexically_relative(folder).string();
    }
    game.start.levelIndex = arguments.number("--index", game.start.levelIndex);
    game.start.seed = arguments.number("--seed", 1U);
    return game;
}

/// The cells of an option's text, as "3,4 5,6".
std::vector<CellPosition> cellsOf(const Arguments& arguments, const std::string& name) {
    std::vector<CellPosition> cells;
    std::istringstream words(arguments.text(name));
    for (std::string word; words >> word;) {
        const std::size_t comma = std::min(word.find(','), word.size());
        const auto x = numberIn<int>(word.substr(0, comma));
        const auto y = numberIn<int>(word.substr(std::min(comma + 1, word.size())));
        if (!x || !y) failWith(kCannotPlay, name + ": wanted cells as '3,4 5,6', found '" + word + "'");
        cells.push_back({*x, *y});
    }
    return cells;
}

std::optional<CellRange> partOf(const Arguments& arguments) {
    if (!arguments.has("--part")) return std::nullopt;
    const auto corners = cellsOf(arguments, "--part");
    if (corners.size() != 2) failWith(kCannotPlay, "--part: wanted two corners as '3,4 5,6'");
    const auto [left, right] = std::minmax(corners[0].x, corners[1].x);
    const auto [top, bottom] = std::minmax(corners[0].y, corners[1].y);
    return CellRange{{left, top}, {right, bottom}};
}

/// The cells of the option; "source" stands for the line `way` of the level source.
std::vector<CellPosition> wayOf(const Arguments& arguments, const LevelMap& map) {
    std::vector<CellPosition> way;
    TextError error;
    if (arguments.text("--way") != "source")
        way = cellsOf(arguments, "--way");
    else if (const auto source = parseLevelSource(inputText(arguments.text("LEVEL"), kCannotPlay), error))
        way = source->way;
    else
        failWith(kCannotPlay, error.in(arguments.text("LEVEL")));
    if (way.empty() && arguments.has("--way")) failWith(kCannotPlay, "--way: there are no cells");
    for (const CellPosition cell : way)
        if (!map.contains(cell.x, cell.y)) failWith(kCannotPlay, "the way leads out of the level");
    return way;
}

/// The cells of keys to take first; a cell without a key is a slip.
std::vector<CellPosition> keyOrderOf(const Arguments& arguments, const LevelMap& map) {
    auto cells = cellsOf(arguments, "--keys");
    for (const CellPosition cell : cells)
        if (!map.contains(cell.x, cell.y) || !map.cellAt(cell.x, cell.y).keyPresent)
            failWith(kCannotPlay, "--keys: no key lies at " + std::to_string(cell.x) + "," + std::to_string(cell.y));
    return cells;
}

SearchRules rulesOf(const Arguments& arguments, const LevelMap& map) {
    SearchRules rules;
    rules.mostDigs = arguments.has("--no-dig") ? 0 : arguments.number("--digs", rules.mostDigs);
    rules.firstDigFrame = arguments.number("--no-dig-before", 0);
    rules.delay = arguments.number("--delay", 0);
    rules.keyOrder = keyOrderOf(arguments, map);
    rules.takesBonuses = !arguments.has("--no-bonuses");
    rules.part = partOf(arguments);
    rules.way = wayOf(arguments, map);
    return rules;
}

/// For a search in a part: keys elsewhere count as taken.
void takeKeysOutside(LevelMap& map, const CellRange& part) {
    std::vector<CellPosition> elsewhere;
    for (int y = 0; y < map.height(); ++y)
        for (int x = 0; x < map.width(); ++x)
            if (!part.has(x, y) && map.cellAt(x, y).keyPresent) elsewhere.push_back({x, y});
    map.withdrawCollectedKeys(elsewhere);
}

LevelMap mapFor(const RecordedGame& game, PlayContent& content, const Arguments& arguments) {
    std::string error;
    auto map = content.mapOf(game, gamePath(arguments).string(), error);
    if (!map) failWith(kCannotPlay, error);
    if (arguments.has("--no-enemies")) map->removeEnemies();
    if (const auto from = cellsOf(arguments, "--from"); arguments.has("--from")) {
        if (from.size() != 1 || !map->isPassable(from[0].x, from[0].y, View::Physical))
            failWith(kCannotPlay, "--from: wanted a cell where Grub can be, as '3,4'");
        map->setHeroStart(from[0]);
    }
    if (const auto part = partOf(arguments)) {
        takeKeysOutside(*map, *part);
        if (!part->has(map->heroStart().x, map->heroStart().y)) failWith(kCannotPlay, "--part: Grub starts outside");
        if (map->keysRemaining() == 0) failWith(kCannotPlay, "--part: no key lies in it");
    }
    return std::move(*map);
}

}  // namespace

SolveQuestion questionOf(const Arguments& arguments, PlayContent& content) {
    RecordedGame game = attemptAt(arguments);
    World world(mapFor(game, content, arguments), game.start, content.frameCounts());
    world.step();
    SearchRules rules = rulesOf(arguments, world.map());
    return {std::move(game), std::move(world), std::move(rules)};
}

}  // namespace grub
