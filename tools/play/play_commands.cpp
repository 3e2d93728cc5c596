#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>

#include "command.h"
#include "command_lists.h"
#include "game_player.h"
#include "game_text.h"
#include "play_content.h"

namespace grub {
namespace {

/// Shells add this to the number of the signal that ended a program.
constexpr int kKilled = 128;

/// Starts the game that lies beside this program, with these arguments, and waits for it. Returns the game's exit code,
/// 128 and the signal's number when a signal ended it, or -1 when it cannot be started.
int runGameProgram(const std::vector<std::string>& arguments) {
    std::error_code failure;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", failure);
    std::vector<std::string> words{(self.parent_path() / "grubaway").string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers(words.size() + 1, nullptr);  // the last one ends the list
    std::ranges::transform(words, pointers.begin(), [](std::string& word) { return word.data(); });
    pid_t child = 0;
    if (posix_spawn(&child, words.front().c_str(), nullptr, nullptr, pointers.data(), environ) != 0) return -1;
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : kKilled + WTERMSIG(status);
}

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
        failWith(kCannotPlay, path + ": the game has no end within " + std::to_string(kLongestGame) +
                                  " game frames; a line 'FRAME end Quit score 0 keys 0' ends it earlier");
    outputText(path, withOutcome(text, *game), kCannotPlay);
}

/// A temporary level file compiled for the window's program, which does not read sources.
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

/// Plays a game in the window.
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

/// The window's program has written the name of the temporary level file; the game shall name the source.
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
    };
}

}  // namespace grub
