#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <string>
#include <thread>

#include "command.h"
#include "command_lists.h"
#include "game_player.h"
#include "game_text.h"
#include "level_list.h"
#include "play_content.h"
#include "solve_question.h"
#include "solver.h"

namespace grub {
namespace {

SolverLimits limitsOf(const Arguments& arguments) {
    SolverLimits limits;
    limits.states = arguments.number("--states", limits.states);
    if (arguments.has("--memory")) limits.bytes = arguments.number("--memory", std::size_t{0}) << 20U;
    limits.seconds = arguments.number("--seconds", limits.seconds);
    limits.exact = arguments.has("--exact");
    const int cores = static_cast<int>(std::thread::hardware_concurrency());  // 0 when it is not known
    limits.threads = arguments.number("--threads", std::clamp(cores, 1, kMostThreads));
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
void writeWin(RecordedGame game, const World& world, const std::vector<Move>& moves, int delay,
              const std::string& path) {
    World played = world;
    for (const Move move : moves) playMove(played, move, delay, &game.events);
    std::printf("won in game frame %d with %td digs\n%s\n", played.frame(), std::ranges::count_if(moves, isDig),
                textOf(moves).c_str());
    if (path.empty()) return;
    played = world;
    const bool isWon = record(game, played) && game.end->cause == LossCause::Won;
    if (!isWon) failWith(kFailed, "the recorded keys do not win");
    outputText(path, writeGame(game), kCannotPlay);
}

void solveLevel(const Arguments& arguments) {
    std::string error;
    const auto content = PlayContent::open(arguments.text("--data"), error);
    if (content == nullptr) failWith(kCannotPlay, error);
    const auto [game, world, rules] = questionOf(arguments, *content);
    const Solution solution = solve(world, rules, limitsOf(arguments), true);
    printFigures(solution, static_cast<std::size_t>(world.keysRemaining()));
    if (solution.result.verdict != Verdict::Won) throw CommandEnd{kFailed};
    writeWin(game, world, solution.result.moves, rules.delay, arguments.text("--out"));
}

}  // namespace

std::vector<Command> solveCommands() {
    constexpr auto kMost = static_cast<std::uint32_t>(std::numeric_limits<int>::max());
    constexpr auto kLastLevel = static_cast<std::uint32_t>(kLevelCount) - 1;
    const auto withoutGame = [](Parameter parameter) {
        parameter.excludes = "--out";
        return parameter;
    };
    Parameter noDig = flag("--no-dig", "win without digging");
    noDig.excludes = "--digs";
    return {{"solve",
             "Look for a win of a level",
             {word("LEVEL", "1 to 50, a level file or a level source"),
              option("--out", "recorded game of the win to write"),
              noDig,
              number("--digs", "dig at most so often", 0, kMost),
              number("--no-dig-before", "game frame of the first dig at the earliest", 0, kMost),
              number("--delay", "game frames that he stands still before each new key", 0, 250),
              option("--keys", "cells of keys to take first if possible, in this order, as '3,4 5,6'"),
              option("--way", "cells that the win passes, in this order; 'source' for the line of the level source"),
              flag("--no-bonuses", "leave bonuses where they lie"),
              withoutGame(flag("--no-enemies", "take the enemies off the level")),
              withoutGame(option("--part", "corners of the part to stay in, as '3,4 9,8'; keys elsewhere are taken")),
              withoutGame(option("--from", "cell to start from, as '3,4'")),
              number("--seed", "generator when the level starts to be built; 1 if not given", 0, UINT32_MAX),
              number("--index", "place in the level list; on 0 there are no random bonuses", 0, kLastLevel),
              flag("--exact", "take only states for one that play the same: then 'exhausted' is a proof"),
              number("--states", "states of each search", 1, UINT32_MAX),
              number("--memory", "megabytes of all searches together; 8192 if not given", 1, kMost),
              number("--seconds", "time; 600 if not given", 1, kMost),
              number("--threads", "searches at the same time; one for each core if not given", 1, kMostThreads),
              option("--data", "directory of the packages")},
             solveLevel}};
}

}  // namespace grub
