// Recorded games in the real game: it plays what was recorded without it, and what it records plays without it.

#include <gmock/gmock.h>

#include "program_run.h"
#include "whole_file.h"

namespace grub {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

const std::string kGames = GRUB_GAMES_DIR "/";
const std::string kLevels = GRUB_LEVELS_DIR "/turma/";  // with their recorded wins
const std::string kData = " --data '" GRUB_DATA_DIR "'";
constexpr const char* kStay = "stay\n";

using Replay = ProgramRun;

TEST_F(Replay, OfGamesOnLevelsOfTheListComesOutAsRecorded) {
    for (const std::string game : {"level01", "level02", "level14"}) {
        EXPECT_EQ(play(kStay, "--replay '" + kLevels + game + ".game'"), 0) << game << errors;
        EXPECT_THAT(out, EndsWith(game + ".game: all as recorded\n"));
    }
}

TEST_F(Replay, FromLaterOnComesOutTheSame) {
    for (const std::string at : {"1", "200", "100000"}) {
        EXPECT_EQ(play(kStay, "--replay '" + kLevels + "level01.game' --at " + at), 0) << at << errors;
        EXPECT_THAT(out, EndsWith(": all as recorded\n")) << at;
    }
}

TEST_F(Replay, TakesNoKeysButCanBeLeft) {
    const std::string game = "--replay '" + kLevels + "level01.game'";
    EXPECT_EQ(play("20 down Left\n30 up Left\n40 down Z\nstay\n", game), 0) << errors;
    EXPECT_THAT(out, EndsWith(": all as recorded\n"));
    EXPECT_EQ(play("20 close\nstay\n", game), 0) << errors;
    EXPECT_EQ(out + errors, "") << "who leaves hears nothing of the rest";
}

TEST_F(Replay, OfAGameThatDiffersSaysWhere) {
    std::string game = readWholeText(kLevels + "level01.game").value();
    game.replace(game.find("90 down Left"), 12, "91 down Left");
    write("other.game", game);
    EXPECT_EQ(play(kStay, "--replay other.game"), 1);
    EXPECT_EQ(errors, "other.game: frame 100: the hash of the state differs\n");
    write("other.game", "level none.lvl\nindex 0\nseed 1\n");
    EXPECT_EQ(play(kStay, "--replay other.game"), 1) << "the log says why";
    write("other.game", "level none.lvl\nindex 0\nseed 1\nseed 2\n");
    EXPECT_EQ(play(kStay, "--replay other.game"), 2);
    EXPECT_EQ(errors, "other.game:4: wanted a game frame from 0, found 'seed'\n");
}

TEST_F(Replay, OfAGameOnALevelSourceIsStartedByTheTool) {
    EXPECT_EQ(run(kTool + "play --show --at 320 '" + kGames + "dog-buried.game'" + kData), 0) << errors;
    EXPECT_THAT(out, EndsWith(": all as recorded\n"));
    EXPECT_EQ(play(kStay, "--replay '" + kGames + "dog-buried.game'"), 2);
    EXPECT_THAT(errors, HasSubstr("'grubtool play --show' compiles and plays it"));
}

TEST_F(Replay, OfWhatWasRecordedComesOutAsItWasPlayed) {
    const std::string script = "5 down Right\n12 up Right\n15 down Z\n17 down F1\n40 close\nstay\n";
    EXPECT_EQ(play(script, "--level 2 --record mine.game"), 0) << errors;
    const std::string game = text("mine.game");
    EXPECT_THAT(game, testing::StartsWith("level levels\\turma\\level02.lvl\nindex 1\n"));
    EXPECT_THAT(game, HasSubstr(" down Right\n"));
    EXPECT_THAT(game, HasSubstr(" other\n"));
    EXPECT_THAT(game, HasSubstr(" end Quit "));
    EXPECT_EQ(run(kTool + "play mine.game" + kData), 0) << errors;
    EXPECT_EQ(play(kStay, "--replay mine.game"), 0) << errors;
}

TEST_F(Replay, TheFileToRecordInIsTriedBeforePlay) {
    EXPECT_EQ(play("20 close\nstay\n", "--record nowhere/mine.game"), 2);
    EXPECT_EQ(errors, "nowhere/mine.game: cannot be written\n");
}

TEST_F(Replay, OnlyAStartOfTheGameEmptiesTheLog) {
    write("nimbo.log", "from the last start\n");
    for (const char* const options : {"--help", "--nonsense"}) run(kGame + options);
    EXPECT_EQ(text("nimbo.log"), "from the last start\n");
    EXPECT_EQ(play("close\n"), 1) << "a script that is not understood";
    EXPECT_EQ(text("nimbo.log"), "");
}

}  // namespace
}  // namespace grub
