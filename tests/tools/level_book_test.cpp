// What the book of levels shows of a win, and the curve of difficulty.

#include <gtest/gtest.h>

#include "difficulty.h"
#include "whole_file.h"
#include "win_path.h"

namespace grub {
namespace {

TEST(LevelBook, FollowsAWinOverItsDigsAndKeys) {
    TableSource table(*readWholeFile(GRUB_CONTENT_DIR "/levels/typeblok.ini"));
    const auto counts = AnimationFrameCounts::all(8);
    std::vector<TextError> errors;
    const auto level = openForChecks("world turma\nfield\n@k..\n####\n..kE\nXXXX\nend\n", table, counts, errors);
    ASSERT_TRUE(level) << errors.front().in("");
    RecordedGame game;
    TextError error;
    game.events = *readKeyFile("1 down X\n2 up X\n11 down Right\n", error);
    const WinPath path = pathOfWin(game, level->map, counts);
    const auto expectAt = [](Point at, int column, int row) {
        EXPECT_EQ(length(at - Point{(column + 0.5) * kCellSize, (row + 0.5) * kCellSize}), 0) << column << "," << row;
    };
    ASSERT_TRUE(path.digs.size() == 1 && path.keys.size() == 2);
    expectAt(path.places.front(), 0, 0);
    expectAt(path.digs[0], 1, 1);
    expectAt(path.keys[0], 1, 0);
    expectAt(path.keys[1], 2, 2);
    expectAt(path.places.back(), 3, 2);
}

TEST(LevelBook, SmoothsOverFiveLevelsAndFewerAtTheEnds) {
    EXPECT_EQ(smoothed({0, 3, 6, 10, 1, 10}), (std::vector<double>{3, 4.75, 4, 6, 6.75, 7}));
}

}  // namespace
}  // namespace grub
