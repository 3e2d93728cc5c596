#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "block_folder.h"
#include "command.h"
#include "command_lists.h"
#include "game_text.h"
#include "level_check.h"
#include "measure_table.h"
#include "play_content.h"

namespace grub {
namespace {

void tell(const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); }

/// The measures of the recorded win beside the source, NAME.game; nothing, and no fault, when there is no such file.
std::optional<WinMeasures> measuresBeside(const std::string& source, const CheckedLevel& level, bool& isGood) {
    const std::string path = std::filesystem::path(source).replace_extension(".game").string();
    if (!std::filesystem::exists(path)) return std::nullopt;
    std::string error;
    const auto game = loadGame(path, error);
    const auto win = game ? measureWin(*game, level.map, level.counts) : std::nullopt;
    if (!win) tell(game ? path + ": its keys do not win the level" : error);
    isGood = isGood && win.has_value();
    return win;
}

/// Whether one source is good; tells of its faults, and prints its measures.
bool checkSource(const std::string& path, const std::string& blocks, const AnimationFrameCounts& counts) {
    TableSource table(inputBytes(blocks));
    TextError error;
    const auto level = openForChecks(inputText(path), table, counts, error);
    if (!level) {
        tell(error.in(path));
        return false;
    }
    const auto faults = faultsOf(*level);
    for (const LevelFault& fault : faults) tell(faultInSource(fault, level->source).in(path));
    bool isGood = faults.empty();
    const auto win = measuresBeside(path, *level, isGood);
    const std::filesystem::path name(path);
    std::fputs(measureRow((name.parent_path().filename() / name.stem()).string(), *level, win).c_str(), stdout);
    return isGood;
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
             {words("SOURCE", "level source; its recorded win, if there is one, is the .game beside it", true),
              option("--blocks", "block table; without it the typeblok.ini nearest to each level"),
              option("--data", "directory of the packages")},
             check}};
}

}  // namespace grub
