// Recorded games as text: good ones come back the same, damaged ones are refused with the place and the reason.

#include "game_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

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
    EXPECT_EQ(game.start.collectedKeys, (std::vector<CellPosition>{{3, 4}, {99, 0}}));
    EXPECT_EQ(game.events[1], (KeyEvent{7, KeyAction::Up, PlayKey::Right}));
    EXPECT_EQ(game.states[1].hash, 0x0123456789ABCDEFU);
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
        {"4294967295", "4294967296", 3, "wanted a seed from 0 to 4294967295, found '4294967296'"},
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

}  // namespace
}  // namespace grub
