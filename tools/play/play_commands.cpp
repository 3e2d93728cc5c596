#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>

#include "command.h"
#include "command_lists.h"
#include "exit_codes.h"
#include "game_file.h"
#include "game_player.h"
#include "game_program.h"
#include "game_recorder.h"
#include "game_text.h"
#include "play_content.h"
#include "trace_command.h"

namespace grub {
namespace {

std::unique_ptr<PlayContent> openContent(const Arguments& arguments) {
    std::string error;
    auto content = PlayContent::open(arguments.text("--data"), error);
    if (content == nullptr) failWith(kCannotPlay, error);
    return content;
}

RecordedGame readGameFile(const std::string& path) {
    std::string error;
    auto game = loadGame(path, error);
    if (!game) failWith(kCannotPlay, error);
    return std::move(*game);
}

World worldOf(PlayContent& content, const RecordedGame& game, const std::string& path) {
    std::string error;
    auto world = content.worldOf(game, path, error);
    if (!world) failWith(kCannotPlay, error);
    return std::move(*world);
}

/// Plays a game without a window.
void check(const Arguments& arguments) {
    const std::string path = arguments.text("FILE");
    const RecordedGame game = readGameFile(path);
    if (!game.isComplete())
        failWith(kCannotPlay, path + ": wanted hashes and an end, found a draft; --update writes them");
    const auto content = openContent(arguments);
    World world = worldOf(*content, game, path);
    if (!replay(game, world)) {
        std::fputs(drawBoth(game, world).c_str(), stdout);
        failWith(kDiffers, path + ": " + *differenceAt(game, world));
    }
    std::printf("%s: %s in frame %d, score %d\n", path.c_str(), std::string(nameOf(game.end->cause)).c_str(),
                game.end->frame, game.end->score);
}

void update(const Arguments& arguments) {
    const std::string path = arguments.text("FILE");
    const std::string text = inputText(path, kCannotPlay);
    TextError error;
    auto game = readGame(draftOf(text), error);
    if (!game) failWith(kCannotPlay, error.in(path));
    const auto content = openContent(arguments);
    World world = worldOf(*content, *game, path);
    if (!record(*game, world))
        failWith(kCannotPlay, path + ": the keys reach no end; 'FRAME end Quit score 0 keys 0' leaves");
    outputText(path, withOutcome(text, *game), kCannotPlay);
}

/// A level file made for the game of another program, for as long as it runs.
class CompiledLevel {
public:
    CompiledLevel(PlayContent& content, const std::string& source) {
        std::string error;
        const auto level = content.compile(source, error);
        if (!level) failWith(kCannotPlay, error);
        std::string pattern = (std::filesystem::temp_directory_path() / "grubtool-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) failWith(kCannotPlay, pattern + ": cannot be made");
        directory_ = pattern;
        outputBytes(path(), *level, kCannotPlay);
    }
    CompiledLevel(const CompiledLevel&) = delete;
    CompiledLevel& operator=(const CompiledLevel&) = delete;
    ~CompiledLevel() {
        std::error_code ignored;
        std::filesystem::remove_all(directory_, ignored);
    }
    [[nodiscard]] std::string path() const { return (directory_ / "level.lvl").string(); }

private:
    std::filesystem::path directory_;
};

void endAs(int exitCode) {
    if (exitCode < 0) failWith(kCannotPlay, "grubaway: cannot be started");
    if (exitCode != 0) throw CommandEnd{exitCode};
}

/// Plays a game in the window. The window's program knows level files, not their sources.
void show(const Arguments& arguments) {
    const std::string path = arguments.text("FILE");
    const RecordedGame game = readGameFile(path);
    std::vector<std::string> words{"--replay", path};
    if (arguments.has("--data")) words.insert(words.end(), {"--data", arguments.text("--data")});
    if (const int at = arguments.number("--at", 0); at > 0) words.insert(words.end(), {"--at", std::to_string(at)});
    const auto file = levelFileOf(game, path);
    std::unique_ptr<CompiledLevel> compiled;
    if (file && isLevelSource(*file)) {
        compiled = std::make_unique<CompiledLevel>(*openContent(arguments), *file);
        words.insert(words.end(), {"--level", compiled->path()});
    }
    endAs(runGameProgram(words));
}

void play(const Arguments& arguments) {
    if (arguments.has("--show")) return show(arguments);
    arguments.has("--update") ? update(arguments) : check(arguments);
}

/// The window's program wrote the level file that was made for it; the game's is its source.
void nameSource(const std::string& path, const std::string& source) {
    RecordedGame game = readGameFile(path);
    const auto folder = std::filesystem::absolute(path).parent_path();
    game.level = std::filesystem::relative(source, folder).string();
    outputText(path, writeGame(game), kCannotPlay);
}

void recordInWindow(const Arguments& arguments) {
    const std::string level = arguments.text("LEVEL");
    const std::string path = arguments.text("FILE");
    std::vector<std::string> words{"--record", path, "--level", level};
    if (arguments.has("--data")) words.insert(words.end(), {"--data", arguments.text("--data")});
    if (!isLevelSource(level)) return endAs(runGameProgram(words));
    const CompiledLevel compiled(*openContent(arguments), level);
    words[3] = compiled.path();
    endAs(runGameProgram(words));
    nameSource(path, level);
}

}  // namespace

std::vector<Command> playCommands() {
    constexpr Parameter kData = option("--data", "directory of the packages");
    Parameter at = number("--at", "first game frame to show", 0, std::numeric_limits<int>::max());
    at.needs = "--show";
    Parameter anew = flag("--update", "write the hashes and the end anew, from a run");
    anew.excludes = "--show";
    return {
        {"play",
         "Play a recorded game and check that all comes as recorded",
         {word("FILE", "recorded game"), flag("--show", "play it in the window, at game speed"), at, anew, kData},
         play},
        {"record",
         "Play a level in the window and write the game down",
         {word("LEVEL", "1 to 50, a level file or a level source"), word("FILE", "recorded game to write"), kData},
         recordInWindow},
        traceCommand(),
    };
}

}  // namespace grub
