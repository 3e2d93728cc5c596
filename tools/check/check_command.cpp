#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "block_folder.h"
#include "command.h"
#include "command_lists.h"
#include "level_check.h"
#include "measure_table.h"
#include "play_content.h"
#include "recorded_wins.h"

namespace grub {
namespace {

void tell(const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); }

/// Whether one source is good; tells of its faults, and prints its measures.
bool checkSource(const std::string& path, const std::string& blocks, const AnimationFrameCounts& counts) {
    TableSource table(inputBytes(blocks));
    std::vector<TextError> errors;
    const auto level = openForChecks(inputText(path), table, counts, errors);
    for (const TextError& error : errors) tell(error.in(path));
    if (!level) return false;
    const auto faults = faultsOf(*level);
    for (const LevelFault& fault : faults) tell(faultInSource(fault, level->source).in(path));
    std::string reason;
    const auto wins = openWins(path, *level, reason);
    if (!wins) tell(reason);
    const std::filesystem::path name(path);
    std::fputs(
        measureRow((name.parent_path().filename() / name.stem()).string(), *level, wins ? wins->measures : std::nullopt)
            .c_str(),
        stdout);
    return faults.empty() && wins;
}

void check(const Arguments& arguments) {
    std::string error;
    const auto content = PlayContent::open(arguments.text("--data"), error);
    if (content == nullptr) failWith(kFailed, error);
    std::fputs(measureHeading().c_str(), stdout);
    bool areGood = true;
    for (const std::string& source : arguments.texts("SOURCE"))
        areGood = checkSource(source, blocksFor(arguments, source), content->frameCounts()) && areGood;
    if (!areGood) throw CommandEnd{kFailed};
}

}  // namespace

std::vector<Command> checkCommands() {
    return {{"level check",
             "Tell what is wrong with levels, and measure them",
             {words("SOURCE", "level source; its recorded wins are .game and .second.game beside it", true),
              option("--blocks", "block table; without it the typeblok.ini nearest to each level"),
              option("--data", "directory of the packages")},
             check}};
}

}  // namespace grub
