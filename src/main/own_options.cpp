#include "own_options.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <filesystem>

#include "level_list.h"
#include "text_lines.h"

namespace grub {

namespace {

constexpr int kWrongUsage = 2;
constexpr unsigned kScriptSeed = 1;  // any number: a script plays the same game each time

namespace fs = std::filesystem;

constexpr std::array kPackages{"data64.pak", "levels.pak", "sound.pak", "make_m64.pak", "make_z64.pak"};

bool isThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

// Empty when the directory holds every package, else what it lacks.
std::string faultOfData(const std::string& directory) {
    for (const char* const package : kPackages) {
        if (!isThere(fs::path(directory) / package)) return "'" + directory + "' holds no " + package;
    }
    return {};
}

bool isLevelFile(const std::string& level) { return level.ends_with(".lvl"); }

// Empty when `level` is a number of the list or names a level file, else what is wrong with it.
std::string faultOfLevel(const std::string& level) {
    const auto number = numberIn<std::size_t>(level);
    const bool isListed = number && *number >= 1 && *number <= kLevelNames.size();
    if (isListed || (isLevelFile(level) && isThere(level))) return {};
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

// Prints what CLI11 found. Its own exit codes only tell help from faults.
int reportEnd(const CLI::App& app, const CLI::ParseError& end) {
    if (end.get_exit_code() == 0) return app.exit(end);
    std::fprintf(stderr, "grubaway: %s\n", end.what());
    return kWrongUsage;
}

// A word with a capital F asks for the full screen. A misspelt long option does not, whatever its letters.
bool asksForFullScreen(const std::string& word) { return !word.starts_with("--") && word.find('F') != word.npos; }

// Takes the words that belong to no option for the game's command line. A word without a meaning ends the program.
void takeCommandLine(const std::vector<std::string>& words, OwnOptions& options) {
    std::string unknown;
    for (const std::string& word : words) {
        if (!asksForFullScreen(word)) unknown += " '" + word + "'";
    }
    if (!unknown.empty()) {
        std::fprintf(stderr, "grubaway: unknown:%s; 'grubaway --help' lists the options\n", unknown.c_str());
        options.exitCode = kWrongUsage;
    }
    options.commandLine = joined(words);
}

}  // namespace

OwnOptions readOwnOptions(int argc, const char* const* argv) {
    OwnOptions options;
    std::string level;
    CLI::App app("Grubaway: dig, climb, take the keys and leave.", "grubaway");
    app.allow_extras();
    bool fullScreen = false;
    app.add_flag("--full-screen", fullScreen, "Start on the full screen, unless the menu's settings say otherwise");
    app.add_option("--data", options.dataDirectory, "Directory that holds the packages")
        ->type_name("DIR")
        ->check(CLI::Validator(faultOfData, ""));
    app.add_option("--level", level, "Play this level at once, without the menu: 1 to 50, or a level file")
        ->type_name("NAME")
        ->check(CLI::Validator(faultOfLevel, ""));
    app.add_option("--script", options.scriptFile, "Play a script, without screen and sound")->type_name("FILE");
    CLI::Option* const replay =
        app.add_option("--replay", options.replayFile, "Play a recorded game")->type_name("FILE");
    app.add_option("--at", options.showFrom, "First game frame of the recorded game to show")
        ->type_name("FRAME")
        ->needs(replay)
        ->check(CLI::NonNegativeNumber.description(""));
    app.add_option("--record", options.recordFile, "Record one attempt in a file")->type_name("FILE")->excludes(replay);
    app.set_version_flag("--version", "grubaway " GRUB_VERSION);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        options.exitCode = reportEnd(app, end);
    }
    if (options.exitCode) return options;
    startAt(level, options.start);
    options.start.withoutMenu = !level.empty() || !options.replayFile.empty() || !options.recordFile.empty();
    if (!options.scriptFile.empty()) options.start.seed = kScriptSeed;
    std::vector<std::string> words = app.remaining();
    if (fullScreen) words.emplace_back("F");
    takeCommandLine(words, options);
    return options;
}

}  // namespace grub
