// How an attempt ends, what a world is as a value, and what rises from it.
#include "world.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "scenario.h"

namespace grub {
namespace {

// 32 pixels away is safe, 28 is not, along either axis; both axes must be near. The last enemy of the list that is near
// is the cause; the exit takes its place, and the floor that of the exit.
TEST(World, Ends) {
    // The rat leaps onto him in his hole in frame 272. Dug in frame 4 it closes in that frame, dug in 5 it does not.
    constexpr const char* kRat = "@.................r/==#################/###################";
    expectScenarios({
        {"caught from above", "l ./. ./@ ./# #", "", "23: end=no; 24: end=Lady"},
        {"24 beside him and 28 over him", "@ . r/= = =/# # #", "16 down X, 144 down Right",
         "147: end=no; 148: end=Rat"},
        {"32 beside him, a frame later 24", "@ . r/= = =/# # #", "16 down X, 145 down Right",
         "148: end=no; 149: end=Rat"},
        {"rat, then dog", "r . @ . d/# # # # #", "", "23: end=no; 24: end=Dog"},
        {"dog, then lady", "d . @ . l/# # # # #", "", "23: end=no; 24: end=Lady"},
        {"caught short of an exit", "@ k . . d/# # # # #", "7 down Right", "24: end=no; 25: end=Dog"},
        {"caught on the exit, the dog 24 pixels behind it", "@ k E . d/# # # # #", "7 down Right",
         "24: end=no; 25: end=Won"},
        {"caught in a hole", kRat, "5 down X, 12 down Right, 30 up Right", "271: end=no; 272: end=Rat"},
        {"caught and buried", kRat, "4 down X, 12 down Right, 30 up Right", "271: end=no; 272: end=Pit"},
        {"won on the exit, not on the way into it", "E k @/# # #", "1 down Left",
         "15: x=8 end=no; 16: end=Won score=1050"},
        {"not won while a key lies", "k . @ E/# # # #", "1 down Right", "40: map=k..@/#### end=no"},
        {"a start in the air settles in frame 0", "@/./#", "", "0: y=8 lives=3"},
    });
}

TEST(World, ForgetsTakenKeysWhenItIsWon) {
    auto world = worldFrom({"@ k E .", "# # # #"}).script("1 down Right").runTo(18);
    EXPECT_EQ(world.world().collectedKeys().size(), 1U);
    world.world().end(LossCause::Quit);
    EXPECT_EQ(world.world().cause(), LossCause::Quit);
    EXPECT_EQ(world.runTo(19).world().cause(), LossCause::Won) << "a rule names another cause";
    EXPECT_TRUE(world.world().collectedKeys().empty()) << "the next level has all its keys";
}

// The step that settles the level looks for an end like any other, and play begins with one more.
TEST(World, IsWonTwiceWhereTheHeroStartsOnAnOpenExit) {
    LevelMap map = mapFrom({"E .", "# #"});
    map.setHeroStart({0, 0});
    World world(map, {}, AnimationFrameCounts::all(kDrawnFrames));
    EXPECT_EQ(world.frame(), -1);
    world.step();
    EXPECT_TRUE(world.ended());
    world.step();
    EXPECT_EQ(world.score(), 2000);
}

TEST(World, AsksForTheSameSoundOnceAFrame) {
    SoundRequests requests;
    requests.stop(SoundId::Falling);
    for (int i = 0; i < 100; ++i) {
        for (int sound = 0; sound < kSoundCount; ++sound) requests.play(static_cast<SoundId>(sound));
    }
    ASSERT_EQ(requests.all().size(), 26U);
    EXPECT_EQ(requests.all()[0], (SoundRequest{SoundId::Falling, SoundRequest::Action::Stop}));
    EXPECT_EQ(requests.all()[1].sound, SoundId::Break);
}

TEST(ScorePopup, RisesForFiftyPicturesBehindDialogsToo) {
    auto world = worldFrom({"@ +", "# #"}).script("1 down Right").runTo(12);
    const ScorePopup& popup = world.world().popups().entries()[0];
    EXPECT_EQ(popup.value, 100);
    EXPECT_EQ(popup.y, 31) << "drawn at 32 in the frame of its points, then one up";
    for (int picture = 2; picture <= 50; ++picture) {
        ASSERT_TRUE(popup.shown) << picture;
        world.world().finishFrame(false);
        ASSERT_TRUE(world.world().sounds().empty()) << "a dialog is no reason to hear the bonus again";
    }
    EXPECT_TRUE(popup.shown);
    EXPECT_EQ(popup.y, 32 - 50);
    world.world().finishFrame(false);
    EXPECT_FALSE(popup.shown);
}

TEST(ScorePopup, FindsNoTwentyFirstPlaceThoughThePointsCount) {
    Attempt attempt = attemptOn({"@", "#"});
    for (int i = 1; i <= 21; ++i) attempt.addScore(i, 0, 0);
    attempt.popups.finishFrame();
    EXPECT_EQ(std::ranges::count(attempt.popups.entries(), true, &ScorePopup::shown), 20);
    EXPECT_EQ(attempt.score, 21 * 22 / 2);
}

}  // namespace
}  // namespace grub
