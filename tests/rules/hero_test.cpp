// What Grub does for which keys: where he is, what he shows and what is heard.
#include <gtest/gtest.h>

#include <vector>

#include "scenario.h"

namespace grub {
namespace {

// Animations: 1 and 76 walk, 77 and 78 hang, 79 climb, 80 and 81 dig, 152 fall, 333 and 334 stand; left before right.

TEST(Hero, Walks) {
    expectScenarios({
        {"turns for three frames", "@ ./# #", "1 down Right",
         "1: looks=right shows=334:0; 3: x=0; 4: x=8; 5: shows=76:1"},
        {"turns left for three frames too", ". @ ./# # #", "1 down Right, 2 up Right, 9 down Left",
         "11: x=64 looks=left; 12: x=56"},
        {"starts at once the way he looks", ". @/# #", "1 down Left", "1: x=56 shows=1:0"},
        {"turns back between cells, but not his head", "@ ./= =", "1 down Right, 7 up Right, 7 down Left, 9 down Space",
         "6: x=24; 7: x=16 looks=right; 10: x=0 map=@./=_"},
        {"turns back without the delay of a standstill", ". @ ./# # #", "1 down Right, 7 up Right, 7 down Left",
         "9: x=64; 10: x=56"},
        {"to the right too", ". @ ./# # #", "1 down Left, 4 up Left, 4 down Right", "6: x=64; 7: x=72"},
        {"stops at a wall and at the edge", "@ #/# #", "1 down Right, 31 down Left", "30: x=0; 60: x=0"},
        {"a tap takes the place of a held key", "@ . ./# # #", "1 down Right, 6 down Left, 6 up Left", "40: x=64"},
        {"a tap within a frame leaves its turn to wait for", ". @/# #", "1 down Right, 1 up Right, 2 down Left",
         "4: x=64; 5: x=56"},
        {"the release of the other direction changes nothing", "@ . ./# # #", "1 down Left, 2 down Right, 8 up Left",
         "20: x=128"},
        {"is heard once for each round of the strip", "@ . ./# # #", "1 down Right", "15: steps=5,9,13"},
    });
}

TEST(Hero, Falls) {
    expectScenarios({
        {"falls on until a pipe catches him", "@ ./. ./- #/. .", "1 down Right, 17 up Right", "16: map=../../@#/.."},
        {"cannot be turned back up", "@/././#", "1 down Up", "15: y=128"},
        {"is heard once and ends with a landing", "@/././#", "", "6: shows=152:1; 40: falls=1 lands=16"},
        {"steps off an edge", "@ ./# ./# #", "1 down Right", "40: map=../#@/##"},
    });
}

TEST(Hero, Climbs) {
    expectScenarios({
        {"stands on top of a ladder", ". ./@ H/# #", "1 down Right, 12 up Right, 12 down Up", "40: map=.@/.H/##"},
        {"stops under a ceiling", "# #/@ H/# #", "1 down Right, 12 up Right, 12 down Up", "40: y=64"},
        {"needs a ladder", ". ./@ H/# #", "1 down Up", "20: y=64"},
        {"turns back between rungs", "@/H/H/#", "1 down Down, 4 down Up, 5 down Down", "3: y=24; 4: y=16; 5: y=24"},
        {"lands when he stops at the foot", "@/H/H/#", "1 down Down, 20 up Down", "40: y=128 lands=17 falls="},
        {"rests in the sixth frame", "@/H/#", "1 down Down, 4 up Down", "2: shows=79:1; 12: shows=79:5", {}, 6},
        {"is heard on the rungs", "@/H/H/#", "1 down Down", "8: ladder=1,2,6"},
    });
}

TEST(Hero, HangsOnPipes) {
    expectScenarios({
        {"goes along a pipe and lets go", "@ - -/# . ./# . ./# # #", "1 down Right, 20 up Right, 25 down Down",
         "24: map=.-@/#../#../###; 60: map=.--/#../#.@/###"},
        {"hangs, and never grows restless", "@ - ./# . .", "1 down Right, 12 up Right",
         "4: shows=78:0; 30: shows=78:0; 127: shows=78:0"},
        {"sees the pipe to his right going left", ". - @/# . #/# . #", "1 down Left", "9: shows=77:0"},
        {"walks on a pipe that lies on a floor", "@ - ./# # #", "1 down Right", "13: shows=76:1"},
        {"is heard on the pipe", "@ - -/# . ./# . .", "1 down Right", "13: shows=78:1; 15: pipe=5,9,13"},
    });
}

TEST(Hero, Digs) {
    expectScenarios({
        {"opens the floor beside his feet", ". @ ./= = =/# # #", "1 down Z, 6 down X",
         "1: map=.@./_==/### break=1; 2: shows=80:1; 6: map=.@./_=_/###"},
        {"only turns where there is no floor", "@ ./# #", "1 down X", "1: looks=right digs=no break="},
        {"for six frames", "@ ./= =/# #", "1 down X, 2 down Right", "1: shows=81:0; 6: x=0; 7: x=8", {}, 6},
        {"ends without a strip", ". @ ./= = =", "1 down Z, 2 down Right", "20: x=128 shows=334:0", {}, 0},
        {"Space waits for the next cell", "@ . ./= = =", "1 down Right, 7 down Space, 7 up Space", "40: break=12"},
        {"a released X does not", "@ . ./= = =", "1 down Right, 7 down X, 7 up X", "40: x=64 break="},
        {"a tap of A within a frame is lost", ". @ ./= = =", "1 down A, 1 up A, 2 down A",
         "1: digs=no; 3: map=.@./_=="},
        {"a tap of B too", ". @ ./= = =", "1 down B, 1 up B, 2 down B", "1: digs=no; 3: map=.@./==_"},
        {"a tap of Enter digs where he looks", ". @ ./= = =", "1 down Enter, 1 up Enter", "3: map=.@./_=="},
        {"a second dig follows the first", ". @ ./= = =", "1 down Z, 2 down X", "20: break=1,5"},
    });
}

TEST(Hero, TakesKeys) {
    expectScenarios({
        {"half-way, once, a frame after he came there", "@ k k/# # #", "1 down Right",
         "7: x=32 map=@kk/###; 8: map=@.k/### score=50 key=8; 16: keys=0 score=100 door=16"},
        {"from the row he climbs to", "k ./H ./H @/# #", "1 down Left, 9 down Up", "20: y=32 keys=1; 21: keys=0"},
    });
}

TEST(Hero, LeavesTakenKeysToTheNextAttemptButNotTheOneUnderHisFeet) {
    auto world = worldFrom({"@ k k", "# # #"}).script("1 down Right").runTo(8);
    WorldStart next;
    next.score = world.world().score();
    next.collectedKeys.assign(world.world().collectedKeys().begin(), world.world().collectedKeys().end());
    auto again = worldFrom({"@ k k", "# # #"}, next);
    EXPECT_EQ(again.drawn(), (Drawing{"@ . k", "# # #"}));
    EXPECT_EQ(again.world().score(), 50);
    EXPECT_EQ(again.world().collectedKeys().size(), 1U) << "a third attempt must know it too";

    LevelMap map = mapFrom({"@ .", "# #"});
    map.addKey(0, 0, 0);
    World start(map, {}, AnimationFrameCounts::all(kDrawnFrames));
    start.step();
    EXPECT_EQ(start.score(), 50);
    EXPECT_TRUE(start.collectedKeys().empty());
}

// After five seconds without a key a strip of seven frames starts over, one frame on.
TEST(Hero, GrowsRestless) {
    expectScenarios({
        {"without a key", "@ ./# #", "", "124: shows=333:5; 125: shows=333:1; 126: shows=333:2", {}, 7},
        {"later after a key", "@ ./# #", "10 down Up", "134: shows=333:1; 135: shows=333:1; 136: shows=333:2", {}, 7},
        {"not on a walk", "@.........................../############################", "1 down Right",
         "125: shows=76:1; 126: shows=76:1; 127: shows=76:2; 134: shows=76:1"},
    });
}

TEST(Hero, StandsStillBehindDialogsAndAfterTheEnd) {
    auto digging = worldFrom({"@ .", "= ="}, {}, AnimationFrameCounts::all(6)).script("1 down X").runTo(4);
    for (int i = 0; i < 50; ++i) digging.world().finishFrame(false);
    EXPECT_EQ(digging.world().heroFrame().frame, 3);
    EXPECT_FALSE(digging.runTo(6).world().hero().isDigging());

    auto ended = worldFrom({"@ . .", "# # #"}).script("1 down Right").runTo(8);
    const int before = ended.world().heroFrame().frame;
    ended.world().end(LossCause::Quit);
    EXPECT_EQ(ended.runTo(10).world().heroFrame().frame, before);
    EXPECT_EQ(ended.framesOf(SoundId::Steps), std::vector<int>{5}) << "in the ninth frame he would be heard";

    auto idle = worldFrom({"@ .", "# #"}).runTo(126);
    idle.world().end(LossCause::Quit);
    std::vector<int> shown;
    for (const int frame : {127, 128, 130}) shown.push_back(idle.runTo(frame).world().heroFrame().frame);
    EXPECT_EQ(shown, (std::vector<int>{3, 0, 0})) << "a restless strip plays to its end";
}

}  // namespace
}  // namespace grub
