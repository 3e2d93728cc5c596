// What becomes of cells: floors that break and grow back, ladders that appear, exits that open.
#include "terrain.h"

#include <gtest/gtest.h>

#include "scenario.h"
#include "world_random.h"

namespace grub {
namespace {

// The strip of the whole floor has one frame in a level. Here all strips have as many as the row says.
TEST(BrokenFloor, GrowsBackOnTheFrame) {
    expectScenarios({
        {"with strips of four frames", "@ ./= =/# #", "1 down X",
         "1: is1,1=broken shows1,1=83:0 map=@./=_/##; 11: is1,1=broken; 12: is1,1=waits; 249: is1,1=waits;"
         "250: is1,1=regrows shows1,1=84:0; 268: map=@./=_/## is1,1=regrows; 269: map=@./==/## is1,1=whole"},
        {"with strips of one frame", "@ ./= =/# #", "1 down X", "253: is1,1=regrows; 254: is1,1=whole", {}, 1},
        {"without strips", "@ ./= =/# #", "1 down X", "300: is1,1=whole map=@./==/##", {}, 0},
        {"and can be dug again", "@ ./= =/# #", "1 down X, 300 down X", "567: is1,1=regrows; 568: is1,1=whole"},
    });
}

TEST(BrokenFloor, RunsBackToItsOneFrame) {
    auto counts = AnimationFrameCounts::all(kDrawnFrames);
    counts.set(3, 1);  // the whole floor
    auto world = worldFrom({"@ .", "= =", "# #"}, {}, counts).script("1 down X").runTo(268);
    for (const int shown : {3, 2, 1, 0, 0}) EXPECT_EQ(world.run(1).world().map().cellAt(1, 1).frame, shown);
}

TEST(Pit, BuriesWhoIsInTheHoleWhenItCloses) {
    expectScenarios({
        {"sits in it", "@ . ./= = #/# # #", "1 down X, 8 down Right", "268: end=no; 269: end=Pit"},
        {"leaves to the right, 56 pixels out", "@ . . ./= = . ./# # # #",
         "1 down X, 8 down Right, 20 up Right, 263 down Right", "275: end=Pit"},
        {"leaves to the right, all out", "@ . . ./= = . ./# # # #",
         "1 down X, 8 down Right, 20 up Right, 262 down Right", "275: end=no"},
        {"leaves to the left, his first pixel saves him", ". . @/. = =/# # #",
         "1 down Z, 8 down Left, 20 up Left, 269 down Left", "275: end=no"},
        {"leaves to the left too late", ". . @/. = =/# # #", "1 down Z, 8 down Left, 20 up Left, 270 down Left",
         "275: end=Pit"},
    });
}

TEST(LastKey, OpensExitsAndRaisesLadders) {
    expectScenarios({
        {"an exit opens and stays open", "E @ k/# # #", "1 down Right",
         "7: shows0,0=99:0; 8: shows0,0=99:1; 9: shows0,0=99:2; 10: shows0,0=99:3; 12: shows0,0=99:3"},
        {"the exit in the map's last cell too", "@ k/# E", "1 down Right", "7: shows1,1=99:0; 8: shows1,1=99:1"},
        {"without keys an exit opens at once and in silence", "@ E/# #", "", "0: shows1,0=99:1; 10: door="},
        {"a ladder appears", "h ./@ k/# #", "1 down Right", "7: map=h./@k/##; 8: map=H./@./## shows0,0=5:3"},
        {"in the frame that the empty cell has reached", "h ./@ k/# #", "1 down Right", "8: shows0,0=5:5", {}, 6},
        {"and can be walked to", "H . h . @ k/# # # # # #", "1 down Right",
         "0: far0=.,.,.,1,0,1; 12: far0=5,4,3,2,1,0"},
    });
}

// Sleeping is only a saving: with every cell kept awake the same things happen.
TEST(SleepingCells, MissNothing) {
    auto counts = AnimationFrameCounts::all(3);
    counts.set(3, 1);
    LevelMap map = mapFrom({"@ = = = k", "= = E h =", "H - = = s", "# = = = k"});
    LevelMap watched = map;
    WorldRandom random(3);
    for (int frame = 0; frame < 3000; ++frame) {
        const int x = random.next() % 5;
        const int y = random.next() % 4;
        if (random.next() % 40 == 0 && map.cellAt(x, y).type == BlockType::Floor) {
            breakFloor(map, x, y);
            breakFloor(watched, x, y);
        }
        if (frame == 1000 || frame == 2000) {
            map.collectKey(4, frame == 1000 ? 0 : 3);
            watched.collectKey(4, frame == 1000 ? 0 : 3);
        }
        for (int i = 0; i < 20; ++i) watched.wake(i % 5, i / 5);
        updateCells(map, counts);
        updateCells(watched, counts);
        for (int i = 0; i < 20; ++i) ASSERT_EQ(map.cellAt(i % 5, i / 5), watched.cellAt(i % 5, i / 5)) << frame;
    }
    EXPECT_EQ(map.keysRemaining(), 0);
}

}  // namespace
}  // namespace grub
