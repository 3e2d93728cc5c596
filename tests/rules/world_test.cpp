#include "world.h"

#include <gtest/gtest.h>

#include "drawn_world.h"

namespace grub {
namespace {

TEST(World, IsWonOnTheOpenExit) {
    WorldStart start;
    start.score = 200;
    auto world = worldFrom({"@ k E .", "# # # #"}, start);
    world.script("1:+R").runTo(18);
    EXPECT_FALSE(world.world().ended());
    EXPECT_EQ(world.world().collectedKeys().size(), 1U);
    world.runTo(19);
    EXPECT_TRUE(world.world().ended());
    EXPECT_EQ(world.world().cause(), LossCause::Won);
    EXPECT_EQ(world.world().score(), 200 + 50 + 1000);
    EXPECT_TRUE(world.world().collectedKeys().empty()) << "the next level has all its keys";
}

TEST(World, IsWonOnTheExitNotOnTheWayIntoIt) {
    auto world = worldFrom({"E k @", "# # #"});
    world.script("1:+L").runTo(15);
    EXPECT_EQ(world.x(), 8);
    EXPECT_FALSE(world.world().ended());
    EXPECT_TRUE(world.runTo(16).world().ended());
}

TEST(World, IsNotWonWhileAKeyLies) {
    auto world = worldFrom({"k . @ E", "# # # #"});
    world.script("1:+R").runTo(40);
    EXPECT_EQ(world.drawn(), (Drawing{"k . . @", "# # # #"}));
    EXPECT_FALSE(world.world().ended());
}

TEST(World, EndsWithTheCauseItIsGivenUntilARuleNamesAnother) {
    auto world = worldFrom({"@ k E .", "# # # #"});
    world.script("1:+R").runTo(18);
    world.world().end(LossCause::Quit);
    EXPECT_EQ(world.world().cause(), LossCause::Quit);
    EXPECT_EQ(world.runTo(19).world().cause(), LossCause::Won);
}

TEST(World, IsAValueThatPlaysOnByItself) {
    auto played = worldFrom({". @ k .", "= = = =", "h . k E", "# # # #"});
    played.script("1:+Z 8:+R 30:+L 60:+X").runTo(20);
    auto copy = played;
    EXPECT_EQ(copy.world(), played.world());
    played.runTo(120);
    EXPECT_NE(copy.world(), played.world());
    copy.runTo(120);
    EXPECT_EQ(copy.world(), played.world());
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

TEST(World, CountsTheSettlingStepAsFrameZero) {
    World world(mapFrom({"@", ".", "#"}), {}, AnimationFrameCounts::all(kDrawnFrames));
    EXPECT_EQ(world.frame(), -1);
    EXPECT_EQ(world.hero().y, 0);
    world.step();
    EXPECT_EQ(world.frame(), 0);
    EXPECT_EQ(world.hero().y, 8) << "a start in the air falls at once";
    EXPECT_EQ(world.lives(), 3);
}

}  // namespace
}  // namespace grub
