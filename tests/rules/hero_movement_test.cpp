#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "drawn_world.h"

namespace grub {
namespace {

TEST(HeroWalking, TurnsOnTheSpotForThreeFrames) {
    auto world = worldFrom({"@ .", "# #"});
    world.script("1:+R").runTo(1);
    EXPECT_EQ(world.world().hero().facing(), Facing::Right);
    EXPECT_EQ(world.runTo(3).x(), 0);
    EXPECT_EQ(world.runTo(4).x(), 8);
}

TEST(HeroWalking, StartsAtOnceTheWayHeLooks) { EXPECT_EQ(worldFrom({". @", "# #"}).script("1:+L").runTo(1).x(), 56); }

TEST(HeroWalking, TurnsBackBetweenCellsWithoutTurningHisHead) {
    auto world = worldFrom({"@ .", "= ="});
    world.script("1:+R 7:-R +L 9:+Space");
    EXPECT_EQ(world.runTo(6).x(), 24);
    EXPECT_EQ(world.runTo(7).x(), 16);
    EXPECT_EQ(world.world().hero().facing(), Facing::Right);
    world.runTo(10);
    EXPECT_EQ(world.x(), 0);
    EXPECT_EQ(world.drawn(), (Drawing{"@ .", "= _"})) << "Space meant the side he looked to when it came";
}

TEST(HeroWalking, TurnsBackWithoutTheDelayOfAStandstill) {
    auto left = worldFrom({". @ .", "# # #"});
    left.script("1:+R 7:-R +L");
    EXPECT_EQ(left.runTo(9).x(), 64);
    EXPECT_EQ(left.runTo(10).x(), 56);
    auto right = worldFrom({". @ .", "# # #"});
    right.script("1:+L 4:-L +R");
    EXPECT_EQ(right.runTo(6).x(), 64);
    EXPECT_EQ(right.runTo(7).x(), 72);
}

TEST(HeroWalking, StopsAtWallsAndAtTheEdges) {
    auto world = worldFrom({"@ #", "# #"});
    EXPECT_EQ(world.script("1:+R").runTo(30).x(), 0);
    EXPECT_EQ(world.script("31:+L").runTo(60).x(), 0);
}

TEST(HeroWalking, ObeysTheLastKeyOnly) {
    auto tapped = worldFrom({"@ . .", "# # #"});
    tapped.script("1:+R 6:+L -L").runTo(40);
    EXPECT_EQ(tapped.x(), 64) << "Right is still down, but the tap took its place";

    auto armed = worldFrom({". @", "# #"});
    armed.script("1:+R -R 2:+L");
    EXPECT_EQ(armed.runTo(4).x(), 64) << "a tap within one frame leaves its turn to wait for";
    EXPECT_EQ(armed.runTo(5).x(), 56);

    auto released = worldFrom({"@ . .", "# # #"});
    released.script("1:+R 3:+U 4:+R 5:-U").runTo(20);
    EXPECT_GT(released.x(), 64) << "a release takes back its own command only";
}

TEST(HeroFalling, GoesOnWhateverIsPressedUntilAPipeCatchesHim) {
    auto world = worldFrom({"@ .",  //
                            ". .",  //
                            "- #",  //
                            ". ."});
    world.hold(PlayKey::Right, 2 * 8);
    EXPECT_EQ(world.drawn(), (Drawing{". .",  //
                                      ". .",  //
                                      "@ #",  //
                                      ". ."}));
}

TEST(HeroFalling, CannotBeTurnedBackUp) {
    auto world = worldFrom({"@", ".", ".", "#"});
    world.hold(PlayKey::Up, 15);
    EXPECT_EQ(world.y(), 128);
}

TEST(HeroFalling, IsHeardOnceAndEndsWithALanding) {
    auto world = worldFrom({"@", ".", ".", "#"});
    world.runTo(40);
    EXPECT_EQ(world.framesOf(SoundId::Falling), std::vector<int>{1});
    EXPECT_EQ(world.framesOf(SoundId::Landing), std::vector<int>{16});
    const HeardSound silence{16, {SoundId::Falling, SoundRequest::Action::Stop}};
    EXPECT_NE(std::ranges::find(world.sounds(), silence), world.sounds().end());
}

TEST(HeroFalling, StepsOffAnEdge) {
    auto world = worldFrom({"@ .", "# .", "# #"});
    world.hold(PlayKey::Right, 40);
    EXPECT_EQ(world.drawn(), (Drawing{". .", "# @", "# #"}));
}

TEST(HeroClimbing, StandsOnTopOfALadder) {
    auto world = worldFrom({". .", "@ H", "# #"});
    world.script("1:+R 12:-R +U").runTo(40);
    EXPECT_EQ(world.drawn(), (Drawing{". @", ". H", "# #"}));
}

TEST(HeroClimbing, StopsUnderACeilingAndAtTheTopRow) {
    auto ceiling = worldFrom({"# #", "@ H", "# #"});
    EXPECT_EQ(ceiling.script("1:+R 12:-R +U").runTo(40).y(), 64);
    auto top = worldFrom({"@ H", "# #"});
    EXPECT_EQ(top.script("1:+R 12:-R +U").runTo(40).y(), 0);
}

TEST(HeroClimbing, NeedsALadder) {
    auto world = worldFrom({". .", "@ H", "# #"});
    EXPECT_EQ(world.script("1:+U").runTo(20).y(), 64);
}

TEST(HeroClimbing, TurnsBackBetweenCells) {
    auto world = worldFrom({"@", "H", "H", "#"});
    world.script("1:+D 4:+U");
    EXPECT_EQ(world.runTo(3).y(), 24);
    EXPECT_EQ(world.runTo(4).y(), 16);
    EXPECT_EQ(world.script("5:+D").runTo(5).y(), 24);
}

TEST(HeroClimbing, LandsOnceWhenHeStops) {
    auto world = worldFrom({"@", "H", "H", "#"});
    world.script("1:+D 20:-D").runTo(40);
    EXPECT_EQ(world.y(), 128);
    EXPECT_EQ(world.framesOf(SoundId::Landing), std::vector<int>{17});
    EXPECT_TRUE(world.framesOf(SoundId::Falling).empty());
}

TEST(HeroHanging, MovesAlongPipesAndLetsGo) {
    auto world = worldFrom({"@ - -",  //
                            "# . .",  //
                            "# . .",  //
                            "# # #"});
    world.script("1:+R 20:-R").runTo(24);
    EXPECT_EQ(world.drawn(), (Drawing{". - @", "# . .", "# . .", "# # #"}));
    world.script("25:+D").runTo(60);
    EXPECT_EQ(world.drawn(), (Drawing{". - -", "# . .", "# . @", "# # #"}));
}

TEST(HeroDigging, OpensTheFloorBesideHisFeet) {
    auto world = worldFrom({". @ .", "= = =", "# # #"});
    world.script("1:+Z").runTo(1);
    EXPECT_EQ(world.drawn(), (Drawing{". @ .", "_ = =", "# # #"}));
    EXPECT_EQ(world.framesOf(SoundId::Break), std::vector<int>{1});
    world.script("6:+X").runTo(6);
    EXPECT_EQ(world.drawn(), (Drawing{". @ .", "_ = _", "# # #"}));
}

TEST(HeroDigging, OnlyTurnsHimWhereThereIsNothingToDig) {
    auto world = worldFrom({"@ .", "# #"});
    world.script("1:+X").runTo(1);
    EXPECT_EQ(world.world().hero().facing(), Facing::Right);
    EXPECT_FALSE(world.world().hero().isDigging());
    EXPECT_TRUE(world.framesOf(SoundId::Break).empty());
}

TEST(HeroDigging, LastsAsLongAsItsAnimation) {
    for (const int frames : {1, 6, 10}) {
        auto counts = AnimationFrameCounts::all(kDrawnFrames);
        counts.set(81, frames);
        auto world = worldFrom({"@ .", "= =", "# #"}, {}, counts);
        world.script("1:+X 2:+R");
        const int free = 1 + frames;
        EXPECT_EQ(world.runTo(free - 1).x(), 0) << frames;
        EXPECT_EQ(world.runTo(free).x(), free == 1 ? 0 : 8) << frames;
    }
}

TEST(HeroDigging, WaitsForTheNextCellWithSpaceAndIsLostWithAReleasedX) {
    auto space = worldFrom({"@ . .", "= = ="});
    space.script("1:+R 7:+Space -Space").runTo(40);
    EXPECT_EQ(space.framesOf(SoundId::Break), std::vector<int>{12});
    auto x = worldFrom({"@ . .", "= = ="});
    x.script("1:+R 7:+X -X").runTo(40);
    EXPECT_TRUE(x.framesOf(SoundId::Break).empty());
    EXPECT_EQ(x.x(), 64);
}

TEST(HeroDigging, HasTwoKeysForEachSideAndTwoForTheSideHeLooksTo) {
    const struct {
        const char* keys;
        Drawing after;
    } rows[] = {
        {"1:+Z", {". @ .", "_ = ="}},
        {"1:+A", {". @ .", "_ = ="}},
        {"1:+X", {". @ .", "= = _"}},
        {"1:+B", {". @ .", "= = _"}},
        {"1:+Space", {". @ .", "_ = ="}},
        {"1:+Enter", {". @ .", "_ = ="}},
        {"1:+R 2:-R +Enter", {". @ .", "= = _"}},
        {"1:+Z -Z", {". @ .", "= = ="}},
        {"1:+A -A", {". @ .", "= = ="}},
        {"1:+X -X", {". @ .", "= = ="}},
        {"1:+B -B", {". @ .", "= = ="}},
        {"1:+Enter -Enter", {". @ .", "_ = ="}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.keys);
        auto world = worldFrom({". @ .", "= = ="});
        EXPECT_EQ(world.script(row.keys).runTo(3).drawn(), row.after);
    }
}

TEST(HeroDigging, FollowsADigWhenTappedMeanwhile) {
    auto world = worldFrom({". @ .", "= = ="});
    world.script("1:+Z 2:+X").runTo(20);
    EXPECT_EQ(world.framesOf(SoundId::Break), (std::vector<int>{1, 5}));
}

TEST(HeroKeys, AreTakenHalfWayAndStayTaken) {
    auto world = worldFrom({"@ k k", "# # #"});
    world.script("1:+R").runTo(7);
    EXPECT_EQ(world.x(), 32);
    EXPECT_EQ(world.drawn(), (Drawing{"@ k k", "# # #"}));
    world.runTo(8);
    EXPECT_EQ(world.drawn(), (Drawing{"@ . k", "# # #"})) << "found a frame after he came half-way";
    EXPECT_EQ(world.world().score(), 50);
    EXPECT_EQ(world.framesOf(SoundId::GetKey), std::vector<int>{8});
    ASSERT_EQ(world.world().collectedKeys().size(), 1U);
    EXPECT_EQ(world.world().collectedKeys()[0], (CellPosition{1, 0}));
    world.runTo(16);
    EXPECT_EQ(world.framesOf(SoundId::OpenDoor), std::vector<int>{16});

    WorldStart next;
    next.score = world.world().score();
    next.collectedKeys = {{1, 0}};
    auto again = worldFrom({"@ k k", "# # #"}, next);
    EXPECT_EQ(again.drawn(), (Drawing{"@ . k", "# # #"}));
    EXPECT_EQ(again.world().keysRemaining(), 1);
    EXPECT_EQ(again.world().score(), 100);
}

TEST(HeroKeys, AreTakenFromTheRowHeClimbsTo) {
    auto world = worldFrom({"k .", "H .", "H @", "# #"});
    world.script("1:+L 9:+U").runTo(20);
    EXPECT_EQ(world.y(), 32);
    EXPECT_EQ(world.world().keysRemaining(), 1);
    EXPECT_EQ(world.runTo(21).world().keysRemaining(), 0);
    EXPECT_TRUE(world.world().map().isKeyCollected(0, 0));
}

TEST(HeroKeys, UnderHisFeetAtTheStartComeBackWithEachAttempt) {
    LevelMap map = mapFrom({"@ .", "# #"});
    map.addKey(0, 0, 0);
    World world(map, {}, AnimationFrameCounts::all(kDrawnFrames));
    world.step();
    EXPECT_EQ(world.score(), 50);
    EXPECT_EQ(world.keysRemaining(), 0);
    EXPECT_TRUE(world.collectedKeys().empty());
    ASSERT_EQ(world.sounds().size(), 1U);
    EXPECT_EQ(world.sounds()[0].sound, SoundId::OpenDoor);
}

}  // namespace
}  // namespace grub
