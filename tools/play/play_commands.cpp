#include "play_commands.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>

#include "command.h"
#include "exit_codes.h"
#include "game_file.h"
#include "game_player.h"
#include "game_program.h"
#include "game_recorder.h"
#include "game_text.h"
#include "play_content.h"
#include "trace_command.h"
#include "whole_number.h"

namespace grub {
namespace {

struct Arguments {
    std::string game;
    std::string level;
    std::string data;
    int at = 0;
    bool show = false;
    bool update = false;
};

std::unique_ptr<PlayContent> openContent(const Arguments& arguments) {
    std::string error;
    auto content = PlayContent::open(arguments.data, error);
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
    const RecordedGame game = readGameFile(arguments.game);
    if (!game.isComplete())
        failWith(kCannotPlay, arguments.game + ": wanted hashes and an end, found a draft; --update writes them");
    const auto content = openContent(arguments);
    World world = worldOf(*content, game, arguments.game);
    if (!replay(game, world)) {
        std::fputs(drawBoth(game, world).c_str(), stdout);
        failWith(kDiffers, arguments.game + ": " + *differenceAt(game, world));
    }
    std::printf("%s: %s in frame %d, score %d\n", arguments.game.c_str(), std::string(nameOf(game.end->cause)).c_str(),
                game.end->frame, game.end->score);
}

void update(const Arguments& arguments) {
    const std::string text = inputText(arguments.game, kCannotPlay);
    TextError error;
    auto game = readGame(draftOf(text), error);
    if (!game) failWith(kCannotPlay, error.in(arguments.game));
    const auto content = openContent(arguments);
    World world = worldOf(*content, *game, arguments.game);
    if (!record(*game, world))
        failWith(kCannotPlay, arguments.game + ": the keys reach no end; 'FRAME end Quit score 0 keys 0' leaves");
    outputText(arguments.game, withOutcome(text, *game), kCannotPlay);
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
    if (exitCode != 0) throw CLI::RuntimeError(exitCode);
}

/// Plays a game in the window. The window's program knows level files, not their sources.
void show(const Arguments& arguments) {
    const RecordedGame game = readGameFile(arguments.game);
    std::vector<std::string> words{"--replay", arguments.game};
    if (!arguments.data.empty()) words.insert(words.end(), {"--data", arguments.data});
    if (arguments.at > 0) words.insert(words.end(), {"--at", std::to_string(arguments.at)});
    const auto file = levelFileOf(game, arguments.game);
    std::unique_ptr<CompiledLevel> compiled;
    if (file && isLevelSource(*file)) {
        compiled = std::make_unique<CompiledLevel>(*openContent(arguments), *file);
        words.insert(words.end(), {"--level", compiled->path()});
    }
    endAs(runGameProgram(words));
}

void play(const Arguments& arguments) {
    if (arguments.show) return show(arguments);
    arguments.update ? update(arguments) : check(arguments);
}

/// The window's program wrote the level file that was made for it; the game's is its source.
void nameSource(const Arguments& arguments) {
    RecordedGame game = readGameFile(arguments.game);
    const auto folder = std::filesystem::absolute(arguments.game).parent_path();
    game.level = std::filesystem::relative(arguments.level, folder).string();
    outputText(arguments.game, writeGame(game), kCannotPlay);
}

void recordInWindow(const Arguments& arguments) {
    std::vector<std::string> words{"--record", arguments.game, "--level", arguments.level};
    if (!arguments.data.empty()) words.insert(words.end(), {"--data", arguments.data});
    if (!isLevelSource(arguments.level)) return endAs(runGameProgram(words));
    const CompiledLevel compiled(*openContent(arguments), arguments.level);
    words[3] = compiled.path();
    endAs(runGameProgram(words));
    nameSource(arguments);
}

void addPlay(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = app.add_subcommand("play", "Play a recorded game and check that all comes as recorded");
    command->add_option("FILE", arguments->game, "recorded game")->required();
    CLI::Option* const show = command->add_flag("--show", arguments->show, "play it in the window, at game speed");
    command->add_option("--at", arguments->at, "first game frame to show")
        ->needs(show)
        ->transform(wholeNumber(std::numeric_limits<int>::max()));
    command->add_flag("--update", arguments->update, "write its hashes and its end anew, from a run")->excludes(show);
    command->add_option("--data", arguments->data, "directory of the packages");
    command->callback([=] { play(*arguments); });
}

void addRecord(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = app.add_subcommand("record", "Play a level in the window and write the game down");
    command->add_option("LEVEL", arguments->level, "1 to 50, a level file or a level source")->required();
    command->add_option("FILE", arguments->game, "recorded game to write")->required();
    command->add_option("--data", arguments->data, "directory of the packages");
    command->callback([=] { recordInWindow(*arguments); });
}

}  // namespace

void addPlayCommands(CLI::App& app) {
    addPlay(app);
    addRecord(app);
    addTraceCommand(app);
}

}  // namespace grub
