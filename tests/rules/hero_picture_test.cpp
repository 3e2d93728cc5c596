#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "drawn_world.h"
#include "hero_animation.h"

namespace grub {
namespace {

using namespace hero_animation;

struct PictureRow {
    const char* what;
    Drawing map;
    const char* keys;
    int frame;
    int animation;
    int shown;
};

// Strips of four frames, except the climb, which rests in its sixth.
const PictureRow kPictures[] = {
    {"stands and looks left", {"@ .", "# #"}, "", 3, kStandLeft, 3},
    {"comes round", {"@ .", "# #"}, "", 4, kStandLeft, 0},
    {"turns", {"@ .", "# #"}, "1:+R", 1, kStandRight, 0},
    {"walks right", {"@ .", "# #"}, "1:+R", 5, kWalkRight, 1},
    {"walks left", {". @", "# #"}, "1:+L", 1, kWalkLeft, 0},
    {"climbs", {"@", "H", "#"}, "1:+D", 2, kClimb, 1},
    {"rests on a ladder", {"@", "H", "#"}, "1:+D 4:-D", 12, kClimb, 5},
    {"falls", {"@", ".", ".", "#"}, "", 6, kFall, 1},
    {"digs left", {". @", "= ="}, "1:+Z", 2, kDigLeft, 1},
    {"digs right", {"@ .", "= ="}, "1:+X", 1, kDigRight, 0},
    {"hangs left", {"@ - .", "# . ."}, "1:+R 12:-R", 30, kHangRight, 0},
    {"moves along a pipe", {"@ - -", "# . .", "# . ."}, "1:+R", 13, kHangRight, 1},
    {"sees the pipe to his right going right", {"@ - .", "# . .", "# . ."}, "1:+R", 4, kHangRight, 0},
    {"sees the pipe to his right going left", {". - @", "# . #", "# . #"}, "1:+L", 9, kHangLeft, 0},
    {"walks on a pipe that lies on a floor", {"@ - .", "# # #"}, "1:+R", 13, kWalkRight, 1},
    {"reaches the last column", {"# @ .", "# # ."}, "1:+R", 40, kStandRight, 0},
};

TEST(HeroPicture, ShowsWhatHeDoes) {
    auto counts = AnimationFrameCounts::all(kDrawnFrames);
    counts.set(kClimb, 6);
    for (const PictureRow& row : kPictures) {
        SCOPED_TRACE(row.what);
        auto world = worldFrom(row.map, {}, counts);
        world.script(row.keys).runTo(row.frame);
        const HeroPicture picture = world.world().heroPicture();
        EXPECT_EQ(picture.animation, row.animation);
        EXPECT_EQ(picture.frame, row.shown);
        EXPECT_FALSE(picture.halfTransparent);
    }
}

TEST(HeroPicture, StartsStandingLeftBeforeAnythingIsPlayed) {
    auto world = worldFrom({"@ .", "# #"});
    for (int i = 0; i < 5; ++i) world.world().finishFrame(false);
    EXPECT_EQ(world.world().heroPicture().animation, kStandLeft);
    EXPECT_EQ(world.world().heroPicture().frame, 0) << "a frame that only shows the level advances nothing";
}

TEST(HeroPicture, StandsStillBehindADialogAndKeepsADigGoing) {
    auto counts = AnimationFrameCounts::all(6);
    auto world = worldFrom({"@ .", "= ="}, {}, counts);
    world.script("1:+X").runTo(4);
    for (int i = 0; i < 50; ++i) world.world().finishFrame(false);
    EXPECT_TRUE(world.world().hero().isDigging());
    EXPECT_EQ(world.world().heroPicture().frame, 3);
    EXPECT_TRUE(world.world().sounds().empty());
    EXPECT_FALSE(world.runTo(6).world().hero().isDigging());
}

TEST(HeroPicture, KeepsItsFrameInTheStripWhateverItsLength) {
    for (const int count : {0, 1}) {
        auto world = worldFrom({"@ . .", "= = =", "# # #"}, {}, AnimationFrameCounts::all(count));
        world.script("1:+R 30:+Z 40:+L");
        for (int frame = 1; frame < 80; ++frame) {
            world.runTo(frame);
            ASSERT_EQ(world.world().heroPicture().frame, 0);
        }
        EXPECT_NE(world.x(), 128) << "a dig without pictures ends";
    }
}

TEST(HeroPicture, FreezesWhenTheAttemptHasEnded) {
    auto world = worldFrom({"@ .", "# #"});
    world.script("1:+R").runTo(6);
    const HeroPicture before = world.world().heroPicture();
    world.world().end(LossCause::Quit);
    world.runTo(8);
    EXPECT_EQ(world.world().heroPicture().animation, before.animation);
    EXPECT_EQ(world.world().heroPicture().frame, before.frame);
}

// In the ninth frame he would be heard. Ended by a rule of that frame or by anybody before it, he is not.
TEST(HeroPicture, IsSilentInTheFrameOfTheEnd) {
    auto world = worldFrom({"@ . .", "# # #"});
    world.script("1:+R").runTo(8);
    world.world().end(LossCause::Quit);
    EXPECT_EQ(world.runTo(9).framesOf(SoundId::Steps), std::vector<int>{5});
}

// A strip of seven frames: after five seconds without a key it starts over, one frame on.
TEST(HeroIdle, StartsOverAfterFiveSecondsWithoutAKey) {
    auto counts = AnimationFrameCounts::all(kDrawnFrames);
    counts.set(kStandLeft, 7);
    auto alone = worldFrom({"@ .", "# #"}, {}, counts);
    EXPECT_EQ(alone.runTo(124).world().heroPicture().frame, 124 % 7);
    EXPECT_EQ(alone.runTo(125).world().heroPicture().frame, 1);
    EXPECT_EQ(alone.runTo(126).world().heroPicture().frame, 2);

    auto played = worldFrom({"@ .", "# #"}, {}, counts);
    played.script("10:+U");
    EXPECT_EQ(played.runTo(134).world().heroPicture().frame, 134 % 7);
    EXPECT_EQ(played.runTo(135).world().heroPicture().frame, 1);
}

TEST(HeroIdle, GoesOnWhenTheAttemptHasEnded) {
    auto world = worldFrom({"@ .", "# #"});
    world.runTo(126);
    world.world().end(LossCause::Quit);
    EXPECT_EQ(world.runTo(127).world().heroPicture().frame, 3);
    EXPECT_EQ(world.runTo(128).world().heroPicture().frame, 0);
    EXPECT_EQ(world.runTo(130).world().heroPicture().frame, 0) << "then he stands still with everything else";
}

TEST(HeroIdle, IsNotForAWalk) {
    auto world = worldFrom({std::string(40, '.').replace(0, 1, "@"), std::string(40, '#')});
    world.script("1:+R");
    for (int frame = 120; frame < 135; ++frame)
        EXPECT_EQ(world.runTo(frame).world().heroPicture().animation, kWalkRight) << frame;
}

TEST(HeroIdle, IsNotForLaddersAndPipes) {
    auto counts = AnimationFrameCounts::all(kDrawnFrames);
    counts.set(kClimb, 6);
    auto ladder = worldFrom({"@", "H", "#"}, {}, counts);
    ladder.script("1:+D 4:-D").runTo(126);
    EXPECT_EQ(ladder.world().heroPicture().animation, kClimb);
    auto pipe = worldFrom({"@ - .", "# . ."});
    pipe.script("1:+R 12:-R").runTo(127);
    EXPECT_EQ(pipe.world().heroPicture().animation, kHangRight);
}

// The picture of the frame before counts: he is heard as he leaves the first picture of a strip, whichever it is.
TEST(HeroSteps, AreHeardOnceForEachRoundOfTheAnimation) {
    auto walk = worldFrom({"@ . .", "# # #"});
    walk.script("1:+R").runTo(15);
    EXPECT_EQ(walk.framesOf(SoundId::Steps), (std::vector<int>{5, 9, 13}));
    auto climb = worldFrom({"@", "H", "H", "#"});
    climb.script("1:+D").runTo(8);
    EXPECT_EQ(climb.framesOf(SoundId::LadderSteps), (std::vector<int>{1, 2, 6}));
    auto hang = worldFrom({"@ - -", "# . .", "# . ."});
    hang.script("1:+R").runTo(15);
    EXPECT_EQ(hang.framesOf(SoundId::PipeSteps), (std::vector<int>{5, 9, 13}));
}

}  // namespace
}  // namespace grub
