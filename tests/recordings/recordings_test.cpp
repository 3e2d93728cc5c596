// Recorded games: their text and what is refused in it; what is written down of a game; what differs first in a replay.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "bytes.h"
#include "drawn_world.h"
#include "game_player.h"
#include "game_text.h"
#include "scratch_directory.h"

namespace grub {
namespace {

/// A game with everything that a game can have, as the writer writes it.
const std::string kGame =
    "level levels\\turma\\level01.lvl\nindex 49\nseed 4294967295\nscore 150\nlives 2\ntaken 3,4 99,0\n\n"
    "0 hash 00000000000000ff k1,1 @2,6\n"
    "1 down Right\n7 up Right\n7 other\n"
    "25 hash 0123456789abcdef _3,7 +0,0 D3,7 l4,4 @2,6\n"
    "30 down Z\n31 hash fedcba9876543210\n31 end Pit score 150 keys 4\n";

RecordedGame read(const std::string& text) {
    TextError error;
    auto game = readGame(text, error);
    EXPECT_TRUE(game) << error.in("game");
    return game.value_or(RecordedGame{});
}

TEST(GameText, WhatIsWrittenReadsBackAsTheSameGame) {
    const RecordedGame game = read(kGame);
    EXPECT_EQ(game.events[1], (KeyEvent{7, KeyAction::Up, PlayKey::Right}));
    EXPECT_EQ(game.states[1].marks[2], (FieldMark{'D', {3, 7}}));
    EXPECT_EQ(game.end, (RecordedEnd{31, LossCause::Pit, 150, 4}));
    EXPECT_EQ(writeGame(game), kGame);
    EXPECT_EQ(read(writeGame(game)), game);
}

TEST(GameText, CommentsBlanksAndLineEndsMeanNothing) {
    std::string spread = "# a game\r\n\r\n";
    for (const char c : kGame) spread += c == '\n' ? std::string(" \t\r\n \t# so\r\n") : std::string(1, c);
    EXPECT_EQ(read(spread), read(kGame));
    EXPECT_EQ(read(kGame.substr(0, kGame.size() - 1)), read(kGame)) << "the last line has no end";
}

TEST(GameText, ADraftIsAGameThatSaysNothingOfWhatCameOfIt) {
    const RecordedGame draft = read(draftOf(kGame));
    EXPECT_FALSE(draft.isComplete());
    EXPECT_FALSE(read("level a b.txt\nindex 0\nseed 0\n30 end Quit score 0 keys 0\n").isComplete());
    EXPECT_EQ(read("level a b.txt\nindex 0\nseed 0\n").level, "a b.txt");
    TextError error;
    EXPECT_FALSE(readGame("level a\nindex 0\nseed 0\n0 down Up\n", error)) << "frame 0 is over before a key can come";
}

TEST(GameText, ANewOutcomeLeavesTheAuthorsLinesAlone) {
    const std::string text =
        "# why\nlevel a.txt\nindex 0\nseed 1\n\n1 down Up\n  # climbs and then\n26 up Up\n25 hash 0\n9 end Won";
    RecordedGame game = read(draftOf(text));
    game.states = {{0, 1, {}}, {25, 2, {{'@', {1, 2}}}}, {26, 3, {}}};
    game.end = {26, LossCause::Won, 1000, 0};
    const std::string updated =
        "# why\nlevel a.txt\nindex 0\nseed 1\n\n0 hash 0000000000000001\n1 down Up\n  # climbs and then\n"
        "25 hash 0000000000000002 @1,2\n26 up Up\n26 hash 0000000000000003\n26 end Won score 1000 keys 0\n";
    EXPECT_EQ(withOutcome(text, game), updated);
    EXPECT_EQ(withOutcome(updated, game), updated);
    EXPECT_EQ(read(updated), game);
    EXPECT_EQ(draftOf("1 down Up\n5 end Quit score 1 keys 1\n"), "1 down Up\n5 end Quit score 1 keys 1\n")
        << "the frame in which the player left is not an outcome";
}

TEST(GameText, DamageIsRefusedWithItsPlace) {
    const struct {
        const char* good;  // text of kGame
        const char* bad;   // what stands there instead
        int line;
        const char* reason;
    } faults[] = {
        {" levels\\turma\\level01.lvl", "", 1, "wanted the level's name, found the end of"},
        {"49", "50", 2, "wanted an index from 0 to 49, found '50'"},
        {"49", "49 3", 2, "wanted the end of the line, found '3'"},
        {"99,0", "100,0", 6, "found '100,0'"},
        {"1 down Right", "1 press Right", 9, "wanted 'down', 'up', 'other', 'hash' or 'end'"},
        {"7 other", "6 other", 11, "wanted a game frame from 7, found '6'"},
        {"30 down Z", "25 down Z", 13, "wanted a frame behind that of the hash"},
        {"00000000000000ff", "ff", 8, "wanted a hash of 16 hexadecimal digits, found 'ff'"},
        {"+0,0", "x0,0", 12, "wanted a mark and its cell, as '@3,4', found 'x0,0'"},
        {"25 hash", "26 hash", 12, "wanted the hash of frame 25, found '26 hash'"},
        {"31 hash fedcba9876543210\n", "", 14, "wanted the hash of frame 31, found 'end'"},
        {"31 end Pit score 150 keys 4", "32 down Z", 15, "wanted the end, behind a hash"},
        {"31 end Pit score 150 keys 4\n", "", 0, "wanted the end in frame 31, found the end of the file"},
        {"Pit", "Load", 15, "wanted a cause (Dog Lady Rat Pit Won Quit), found 'Load'"},
        {"keys 4\n", "keys 4\n31 end Won score 0 keys 0\n", 16, "wanted nothing behind the end"},
    };
    for (const auto& fault : faults) {
        SCOPED_TRACE(fault.reason);
        std::string text = kGame;
        text.replace(text.find(fault.good), std::string(fault.good).size(), fault.bad);
        TextError error;
        EXPECT_FALSE(readGame(text, error));
        EXPECT_EQ(error.line, fault.line);
        EXPECT_THAT(error.message, testing::HasSubstr(fault.reason));
    }
}

TEST(KeyFile, EventsComeBackInTheOrderOfFrames) {
    TextError error;
    const auto events = readKeyFile("# keys\n9 up X\n 3\tdown X\n # dig\n9 down Enter\n", error);
    ASSERT_TRUE(events);
    using enum KeyAction;
    EXPECT_EQ(*events, (std::vector<KeyEvent>{{3, Down, PlayKey::X}, {9, Up, PlayKey::X}, {9, Down, PlayKey::Enter}}));
}

TEST(KeyFile, TakesNothingButItsTenKeysAndFramesFromOne) {
    for (const char* bad : {"0 down X", "1 other", "1 down Escape", "1 down X X", "1"}) {
        TextError error;
        EXPECT_FALSE(readKeyFile("5 down Up\n" + std::string(bad), error)) << bad;
        EXPECT_EQ(error.line, 2) << bad;
    }
}

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
}

}  // namespace
}  // namespace grub
