#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <sstream>
#include <string>

#include "command.h"
#include "command_lists.h"
#include "game_player.h"
#include "game_text.h"
#include "level_list.h"
#include "play_content.h"
#include "solver.h"

namespace grub {
namespace {

/// Where the game is written, or would be.
std::filesystem::path gamePath(const Arguments& arguments) {
    return std::filesystem::absolute(arguments.has("--out") ? arguments.text("--out") : "win.game");
}

/// The attempt that shall be won; its level is named as the game file needs it.
RecordedGame attemptAt(const Arguments& arguments) {
    RecordedGame game;
    const std::string level = arguments.text("LEVEL");
    const auto number = numberIn<std::size_t>(level);
    if (number && *number >= 1 && *number <= kLevelCount) {
        game.level = kLevelNames[*number - 1];
        game.start.levelIndex = static_cast<int>(*number) - 1;
    } else {
        game.level = std::filesystem::absolute(level).lexically_relative(gamePath(arguments).parent_path()).string();
    }
    game.start.levelIndex = arguments.number("--index", game.start.levelIndex);
    game.start.seed = arguments.number("--seed", 1U);
    return game;
}

World settledWorld(const RecordedGame& game, const Arguments& arguments) {
    std::string error;
    const auto content = PlayContent::open(arguments.text("--data"), error);
    if (content == nullptr) failWith(kCannotPlay, error);
    auto map = content->mapOf(game, gamePath(arguments).string(), error);
    if (!map) failWith(kCannotPlay, error);
    if (arguments.has("--no-enemies")) map->removeEnemies();
    World world(std::move(*map), game.start, content->frameCounts());
    world.step();
    return world;
}

/// The cells of a text as "3,4 5,6".
std::vector<CellPosition> cellsOf(const std::string& text) {
    std::vector<CellPosition> cells;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::size_t comma = std::min(word.find(','), word.size());
        const auto x = numberIn<int>(word.substr(0, comma));
        const auto y = numberIn<int>(word.substr(std::min(comma + 1, word.size())));
        if (!x || !y) failWith(kCannotPlay, "--keys: wanted cells as '3,4 5,6', found '" + word + "'");
        cells.push_back({*x, *y});
    }
    return cells;
}

SearchRules rulesOf(const Arguments& arguments) {
    SearchRules rules;
    rules.mostDigs = arguments.has("--no-dig") ? 0 : arguments.number("--digs", rules.mostDigs);
    rules.firstDigFrame = arguments.number("--no-dig-before", 0);
    rules.delay = arguments.number("--delay", 0);
    rules.keyOrder = cellsOf(arguments.text("--keys"));
    rules.takesBonuses = !arguments.has("--no-bonuses");
    return rules;
}

SolverLimits limitsOf(const Arguments& arguments) {
    SolverLimits limits;
    limits.states = arguments.number("--states", limits.states);
    if (arguments.has("--memory")) limits.bytes = arguments.number("--memory", std::size_t{0}) << 20U;
    limits.seconds = arguments.number("--seconds", limits.seconds);
    limits.exact = arguments.has("--exact");
    limits.threads = arguments.number("--threads", limits.threads);
    return limits;
}

void printFigures(const Solution& solution, std::size_t keys) {
    constexpr std::array<const char*, 3> kVerdicts{"won", "exhausted", "cut"};
    const SearchResult& result = solution.result;
    std::printf("%s: %zu of %zu keys, width %zu, %llu states, %.1f s\n",
                kVerdicts[static_cast<std::size_t>(result.verdict)], result.reached.mostKeys, keys,
                solution.shape.width, static_cast<unsigned long long>(solution.allStates), solution.seconds);
    for (const std::string& name : solution.outOfReach) std::printf("no way to %s\n", name.c_str());
    std::string losses;
    for (const LossCause cause : {LossCause::Dog, LossCause::Lady, LossCause::Rat, LossCause::Pit})
        losses +=
            std::string(nameOf(cause)) + " " + std::to_string(result.ends[static_cast<std::size_t>(cause)]) + ", ";
    std::printf("lost to %sout of reach %llu\n", losses.c_str(), static_cast<unsigned long long>(result.outOfReach));
}

/// Plays the win once more and writes it down.
void writeWin(RecordedGame game, World world, const std::vector<Move>& moves, int delay, const std::string& path) {
    World played = world;
    for (const Move move : moves) playMove(played, move, delay, &game.events);
    const bool isWon = record(game, world) && game.end->cause == LossCause::Won;
    if (!isWon) failWith(kFailed, "the recorded keys do not win");
    std::printf("won in game frame %d with %td digs\n%s\n", game.end->frame, std::ranges::count_if(moves, isDig),
                textOf(moves).c_str());
    if (!path.empty()) outputText(path, writeGame(game), kCannotPlay);
}

void solveLevel(const Arguments& arguments) {
    const RecordedGame game = attemptAt(arguments);
    const World world = settledWorld(game, arguments);
    const SearchRules rules = rulesOf(arguments);
    const Solution solution = solve(world, rules, limitsOf(arguments), true);
    printFigures(solution, static_cast<std::size_t>(world.keysRemaining()));
    if (solution.result.verdict != Verdict::Won) throw CommandEnd{kFailed};
    writeWin(game, world, solution.result.moves, rules.delay, arguments.text("--out"));
}

}  // namespace

std::vector<Command> solveCommands() {
    constexpr auto kMost = static_cast<std::uint32_t>(std::numeric_limits<int>::max());
    constexpr auto kLastLevel = static_cast<std::uint32_t>(kLevelCount) - 1;
    Parameter noEnemies = flag("--no-enemies", "take the enemies off the level");
    noEnemies.excludes = "--out";
    Parameter noDig = flag("--no-dig", "win without digging");
    noDig.excludes = "--digs";
    return {{"solve",
             "Look for a win of a level",
             {word("LEVEL", "1 to 50, a level file or a level source"),
              option("--out", "recorded game of the win to write"), noDig,
              number("--digs", "dig at most so often", 0, kMost),
              number("--no-dig-before", "game frame of the first dig at the earliest", 0, kMost),
              number("--delay", "game frames that he stands still before each new key", 0, 250),
              option("--keys", "cells of keys to take first if possible, in this order, as '3,4 5,6'"),
              flag("--no-bonuses", "leave bonuses where they lie"), noEnemies,
              number("--seed", "generator when the level starts to be built; 1 if not given", 0, UINT32_MAX),
              number("--index", "place in the level list; on 0 there are no random bonuses", 0, kLastLevel),
              flag("--exact", "take only states for one that play the same: then 'exhausted' is a proof"),
              number("--states", "states of each search", 1, UINT32_MAX),
              number("--memory", "megabytes of all searches together; 8192 if not given", 1, kMost),
              number("--seconds", "time; 600 if not given", 1, kMost),
              number("--threads", "searches at the same time; 1 if not given", 1, kMostThreads),
              option("--data", "directory of the packages")},
             solveLevel}};
}

}  // namespace grub
