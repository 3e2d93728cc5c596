#include "own_options.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>

#include "level_list.h"
#include "text_lines.h"

namespace grub {

namespace {

constexpr int kWrongUsage = 2;
constexpr unsigned kScriptSeed = 1;  // any: a script plays the same game each time

bool isLevelFile(const std::string& level) { return level.ends_with(".lvl"); }

// Empty when `level` is a number of the list or names a level file, else what is wrong with it.
std::string faultOfLevel(const std::string& level) {
    const auto number = numberIn<std::size_t>(level);
    const bool isListed = number && *number >= 1 && *number <= kLevelNames.size();
    if (isListed || (isLevelFile(level) && std::filesystem::exists(level))) return {};
    return "'" + level + "' is neither a level from 1 to 50 nor a level file (.lvl)";
}

void startAt(const std::string& level, PlayStart& start) {
    if (isLevelFile(level)) {
        start.level = level;
    } else if (!level.empty()) {
        start.levelIndex = std::stoi(level) - 1;
    }
}

std::string joined(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) line += (line.empty() ? "" : " ") + word;
    return line;
}

// Says what CLI11 found; its own exit codes tell help from faults only.
int reportEnd(const CLI::App& app, const CLI::ParseError& end) {
    if (end.get_exit_code() == 0) return app.exit(end);
    std::fprintf(stderr, "grubaway: %s\n", end.what());
    return kWrongUsage;
}

}  // namespace

OwnOptions readOwnOptions(int argc, const char* const* argv) {
    OwnOptions options;
    std::string level;
    CLI::App app("Grubaway: dig, climb, take the keys and leave.", "grubaway");
    app.allow_extras();
    app.add_option("--data", options.dataDirectory, "Directory of the packages")
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory.description(""));
    app.add_option("--level", level, "Level to start with: 1 to 50, or a level file")
        ->type_name("NAME")
        ->check(CLI::Validator(faultOfLevel, ""));
    app.add_option("--script", options.scriptFile, "Play a script, without screen and sound")->type_name("FILE");
    CLI::Option* const replay =
        app.add_option("--replay", options.replayFile, "Play a recorded game")->type_name("FILE");
    app.add_option("--at", options.showFrom, "First game frame of it to show")
        ->type_name("FRAME")
        ->needs(replay)
        ->check(CLI::NonNegativeNumber.description(""));
    app.add_option("--record", options.recordFile, "Write the game down that is played, one attempt")
        ->type_name("FILE")
        ->excludes(replay);
    app.set_version_flag("--version", "grubaway " GRUB_VERSION);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        options.exitCode = reportEnd(app, end);
    }
    if (options.exitCode) return options;
    startAt(level, options.start);
    if (!options.scriptFile.empty()) options.start.seed = kScriptSeed;
    options.commandLine = joined(app.remaining());
    return options;
}

}  // namespace grub
