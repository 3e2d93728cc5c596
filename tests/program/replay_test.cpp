// Recorded games in the real game: it plays what was recorded without it, and what it records plays without it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "scratch_directory.h"

namespace grub {
namespace {

const std::string kGame = GRUB_BIN_DIR "/grubaway";
const std::string kTool = GRUB_BIN_DIR "/grubtool";
const std::string kGames = GRUB_GAMES_DIR "/";

/// A directory in which the programs run.
class Replay : public testing::Test {
protected:
    /// The exit code of a program with these options; what it says goes to `out` and `errors`.
    int run(const std::string& program, const std::string& options) {
        const std::string command = "cd '" + directory_.path().string() + "' && '" + program + "' " + options +
                                    " --data '" GRUB_DATA_DIR "' >out.txt 2>errors.txt";
        const int status = std::system(command.c_str());
        out = text("out.txt");
        errors = text("errors.txt");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    /// Plays in the real game, as fast as it can.
    int play(const std::string& options, const std::string& script = "stay\n") {
        write("play.script", script);
        return run(kGame, "--script play.script " + options);
    }
    [[nodiscard]] std::string text(const std::string& name) const {
        const auto bytes = directory_.read(name);
        return {bytes.begin(), bytes.end()};
    }
    void write(const std::string& name, const std::string& contents) {
        directory_.write(name, {reinterpret_cast<const std::uint8_t*>(contents.data()), contents.size()});
    }
    [[nodiscard]] std::string file(const std::string& name) const { return directory_.file(name); }

    std::string out;
    std::string errors;

private:
    ScratchDirectory directory_;
};

TEST_F(Replay, OfGamesOnLevelsOfTheListComesOutAsRecorded) {
    for (const std::string game : {"first-level", "second-level", "twentieth-level"}) {
        EXPECT_EQ(play("--replay '" + kGames + game + ".game'"), 0) << game << errors;
        EXPECT_THAT(out, testing::EndsWith(game + ".game: all as recorded\n"));
    }
}

TEST_F(Replay, FromLaterOnComesOutTheSame) {
    for (const std::string at : {"1", "200", "100000"}) {
        EXPECT_EQ(play("--replay '" + kGames + "first-level.game' --at " + at), 0) << at << errors;
        EXPECT_THAT(out, testing::EndsWith(": all as recorded\n")) << at;
    }
}

TEST_F(Replay, TakesNoKeyButEscape) {
    const std::string game = "--replay '" + kGames + "first-level.game'";
    EXPECT_EQ(play(game, "20 down Left\n30 up Left\n40 down Z\nstay\n"), 0) << errors;
    EXPECT_THAT(out, testing::EndsWith(": all as recorded\n"));
    EXPECT_EQ(play(game, "20 down Escape\nstay\n"), 0) << errors;
    EXPECT_EQ(out + errors, "") << "who leaves hears nothing of the rest";
}

TEST_F(Replay, OfAGameThatDiffersSaysWhere) {
    std::ifstream source(kGames + "first-level.game");
    std::string game(std::istreambuf_iterator<char>(source), {});
    game.replace(game.find("90 down Left"), 12, "91 down Left");
    write("other.game", game);
    EXPECT_EQ(play("--replay other.game"), 1);
    EXPECT_EQ(errors, "other.game: frame 100: the hash of the state differs\n");
    write("other.game", "level none.lvl\nindex 0\nseed 1\n");
    EXPECT_EQ(play("--replay other.game"), 1) << "the log says why";
    write("other.game", "level none.lvl\nindex 0\nseed 1\nseed 2\n");
    EXPECT_EQ(play("--replay other.game"), 2);
    EXPECT_EQ(errors, "other.game:4: wanted a game frame from 0, found 'seed'\n");
}

TEST_F(Replay, OfAGameOnALevelSourceIsStartedByTheTool) {
    EXPECT_EQ(run(kTool, "play --show --at 320 '" + kGames + "dog-buried.game'"), 0) << errors;
    EXPECT_THAT(out, testing::EndsWith(": all as recorded\n"));
    EXPECT_EQ(play("--replay '" + kGames + "dog-buried.game'"), 2);
    EXPECT_THAT(errors, testing::HasSubstr("'grubtool play --show' compiles and plays it"));
}

TEST_F(Replay, OfWhatWasRecordedComesOutAsItWasPlayed) {
    const std::string script = "5 down Right\n9 press 10 10\n12 up Right\n15 down Z\n17 down F1\n40 down Escape\n";
    EXPECT_EQ(play("--level 2 --record mine.game", script + "stay\n"), 0) << errors;
    const std::string game = text("mine.game");
    EXPECT_THAT(game, testing::StartsWith("level levels\\turma\\level02.lvl\nindex 1\n"));
    EXPECT_THAT(game, testing::HasSubstr(" down Right\n"));
    EXPECT_THAT(game, testing::HasSubstr(" other\n"));
    EXPECT_THAT(game, testing::HasSubstr(" end Quit "));
    EXPECT_EQ(run(kTool, "play mine.game"), 0) << errors;
    EXPECT_EQ(play("--replay mine.game"), 0) << errors;
}

TEST_F(Replay, TheFileToRecordInIsTriedBeforePlay) {
    EXPECT_EQ(play("--record nowhere/mine.game", "20 down Escape\nstay\n"), 2);
    EXPECT_EQ(errors, "nowhere/mine.game: cannot be written\n");
}

TEST_F(Replay, OnlyAStartOfTheGameEmptiesTheLog) {
    write("nimbo.log", "from the last start\n");
    for (const char* const options : {"--help", "--nonsense"}) run(kGame, options);
    EXPECT_EQ(text("nimbo.log"), "from the last start\n");
    EXPECT_EQ(play("", "close\n"), 1) << "a script that is not understood";
    EXPECT_EQ(text("nimbo.log"), "");
}

}  // namespace
}  // namespace grub
