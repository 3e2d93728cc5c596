// Games played on drawn maps: what agrees, what differs first, what is written down, and their files.

#include "game_player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "drawn_world.h"
#include "game_text.h"
#include "package_writer.h"
#include "scratch_directory.h"

namespace grub {
namespace {

/// Three cells to a key, which is in reach half a cell before it, one more to the exit.
const Drawing kWay{"@ . . k E", "# # # # #"};

World freshWorld() { return worldFrom(kWay).world(); }

const std::vector<KeyEvent> kToTheRight{{1, KeyAction::Down, PlayKey::Right}};

RecordedGame recordedGame() {
    RecordedGame game;
    game.events = kToTheRight;
    World world = freshWorld();
    EXPECT_TRUE(record(game, world));
    return game;
}

TEST(GameRecorder, PutsDownEverySecondAndTheEnd) {
    const RecordedGame game = recordedGame();
    ASSERT_EQ(game.states.size(), 3U);
    EXPECT_EQ(game.states[1].frame, 25);
    // Three frames to turn, eight for each of four cells.
    EXPECT_EQ(game.states[2].frame, 35);
    EXPECT_EQ(game.end, (RecordedEnd{35, LossCause::Won, 1050, 0}));
    World world = freshWorld();
    EXPECT_TRUE(replay(game, world));
}

TEST(GameRecorder, WritesWhatThePlayerDidAndNotTheFrameInWhichHeLeft) {
    World world = freshWorld();
    GameRecorder recorder("drawn", {});
    recorder.frame(world);
    recorder.event(world, KeyAction::Down, PlayKey::Right);
    world.keyDown(PlayKey::Right);
    for (int frame = 1; frame <= 31; ++frame) {
        if (frame == 31) {
            recorder.event(world, KeyAction::Other);  // the key by which he leaves
            world.end(LossCause::Quit);
        }
        world.step();
        world.finishFrame(true);
        recorder.frame(world);
    }
    const RecordedGame game = recorder.game();
    EXPECT_EQ(game.events, kToTheRight);
    EXPECT_EQ(game.end, (RecordedEnd{30, LossCause::Quit, 50, 0}));
    EXPECT_EQ(game.states.back().frame, 30);
    World again = freshWorld();
    EXPECT_TRUE(replay(game, again)) << differenceAt(game, again).value_or("");
}

TEST(GameRecorder, GivesUpWhereTheKeysReachNoEnd) {
    RecordedGame game;
    World world = freshWorld();
    EXPECT_FALSE(record(game, world));
    game.end = {40, LossCause::Quit, 0, 0};
    world = freshWorld();
    EXPECT_TRUE(record(game, world)) << "unless he leaves";
    EXPECT_EQ(game.end, (RecordedEnd{40, LossCause::Quit, 0, 1}));
}

TEST(GamePlayer, FindsTheFirstDifference) {
    const struct {
        void (*change)(RecordedGame&);
        int frame;
        const char* told;
    } rows[] = {
        {[](RecordedGame& g) { g.states[0].hash ^= 1; }, 0, "frame 0: the hash of the state differs"},
        {[](RecordedGame& g) { g.states[2].hash ^= 1; }, 35, "frame 35: the hash"},
        {[](RecordedGame& g) { g.events.clear(); }, 25, "frame 25: the hash"},
        {[](RecordedGame& g) { g.end->score = 7; }, 35,
         "frame 35: recorded Won, score 7, keys 0; played Won, score 1050"},
        {[](RecordedGame& g) { g.end->cause = LossCause::Pit; }, 35,
         "frame 35: recorded Pit, score 1050, keys 0; played"},
        {[](RecordedGame& g) { g.end->frame = 90; }, 35, "frame 35: recorded goes on; played Won, score 1050, keys 0"},
        {[](RecordedGame& g) { g.end->frame = 30; }, 30, "frame 30: recorded Won, score 1050, keys 0; played goes on"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.told);
        RecordedGame game = recordedGame();
        row.change(game);
        World world = freshWorld();
        EXPECT_FALSE(replay(game, world));
        EXPECT_EQ(world.frame(), row.frame);
        EXPECT_THAT(differenceAt(game, world).value_or(""), testing::StartsWith(row.told));
    }
}

TEST(FieldMarks, TellWhatMovesAndWhatHasGone) {
    // The dog falls into the hole that Grub has dug.
    auto world = worldFrom({"@ . . d k E h +", "= = = = = = = ="});
    world.script("1 down X, 2 up X").runTo(62);
    EXPECT_EQ(marksOf(world.world()),
              (std::vector<FieldMark>{{'_', {1, 1}}, {'k', {4, 0}}, {'+', {7, 0}}, {'D', {1, 1}}, {'@', {0, 0}}}));
    EXPECT_EQ(world.drawn(), (Drawing{"@...kEh+", "=D======"}));
    EXPECT_EQ(drawField(world.world().map(), {{'@', {2, 0}}, {'d', {200, 0}}}),
              (std::vector<std::string>{"..@..EH.", "========"}))
        << "without a key the ladder is there; what is outside is not drawn";
}

TEST(GameFile, ThatCannotBeReadSaysSo) {
    const ScratchDirectory scratch;
    std::string error;
    EXPECT_FALSE(loadGame(scratch.file("none.game"), error));
    EXPECT_EQ(error, scratch.file("none.game") + ": cannot be read");
    scratch.write("bad.game", bytesOf("# so\nlevel a\nseed\n"));
    EXPECT_FALSE(loadGame(scratch.file("bad.game"), error));
    EXPECT_EQ(error, scratch.file("bad.game") + ":3: wanted index, found 'seed'");
}

TEST(GameFile, ALevelIsANameOfTheListOrLiesBesideTheGame) {
    RecordedGame game;
    game.level = "levels\\turma\\level22.lvl";
    EXPECT_EQ(levelFileOf(game, "/games/a.game"), std::nullopt);
    game.level = "../mine/well.txt";
    EXPECT_EQ(levelFileOf(game, "/games/a.game"), "/games/../mine/well.txt");
    EXPECT_EQ(levelFileOf(game, "a.game"), "../mine/well.txt");
}

}  // namespace
}  // namespace grub
