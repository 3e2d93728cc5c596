#include "world.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "drawn_world.h"
#include "state_hash.h"

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
    auto played = worldFrom({". @ k . d", "= = = = =", "h . k E l", "# # # # #"});
    played.script("1:+Z 8:+R 30:+L 60:+X").runTo(20);
    auto copy = played;
    EXPECT_EQ(copy.world(), played.world());
    played.runTo(120);
    EXPECT_NE(copy.world(), played.world());
    copy.runTo(120);
    EXPECT_EQ(copy.world(), played.world());
}

std::uint64_t hashOf(const Drawing& map, const WorldStart& start, const char* keys, int frame) {
    return worldFrom(map, start).script(keys).runTo(frame).world().stateHash();
}

// A hash stands for what play depends on: the same for a copy, another one for every difference in the state.
TEST(World, HasAnotherHashForEachDifference) {
    const Drawing map{"@ . + ~ . . k", "= = = = = = =", "# # # # # # d"};
    const WorldStart plain;
    std::map<std::uint64_t, std::string> seen;
    const auto add = [&](const char* what, std::uint64_t hash) {
        const auto [place, isNew] = seen.emplace(hash, what);
        EXPECT_TRUE(isNew) << what << " looks like " << place->second;
    };
    add("nothing", hashOf(map, plain, "", 30));
    add("another frame", hashOf(map, plain, "", 31));
    add("a sign of life", hashOf(map, plain, "30:+U -U", 30));
    add("an older sign of life", hashOf(map, plain, "20:+U -U", 30));
    add("a command", hashOf(map, plain, "30:+U", 30));
    add("a turn that has begun", hashOf(map, plain, "28:+R 29:-R", 30));
    add("a turn that is nearly done", hashOf(map, plain, "28:+R 30:-R", 30));
    add("a step", hashOf(map, plain, "26:+R -R 27:+R", 30));
    add("a hole", hashOf(map, plain, "1:+X", 30));
    add("an older hole", hashOf(map, plain, "2:+X", 30));
    for (const auto& [what, change] : std::initializer_list<std::pair<const char*, void (*)(WorldStart&)>>{
             {"a seed", [](WorldStart& start) { start.seed = 1; }},
             {"a level", [](WorldStart& start) { start.levelIndex = 1; }},
             {"a score", [](WorldStart& start) { start.score = 50; }},
             {"a life", [](WorldStart& start) { start.lives = 4; }},
             {"a key",
              [](WorldStart& start) {
                  start.collectedKeys = {{6, 0}};
              }},
         }) {
        WorldStart changed;
        change(changed);
        add(what, hashOf(map, changed, "", 30));
    }
    add("a lady for a dog", hashOf({"@ . + ~ . . k", "= = = = = = =", "# # # # # # l"}, plain, "", 30));
    add("no heart", hashOf({"@ . . ~ . . k", "= = = = = = =", "# # # # # # d"}, plain, "", 30));
    add("no drops", hashOf({"@ . + . . . k", "= = = = = = =", "# # # # # # d"}, plain, "", 30));

    auto played = worldFrom(map).script("1:+R").runTo(40);
    const World copy = played.world();
    EXPECT_EQ(copy.stateHash(), played.world().stateHash());
    played.world().finishFrame(false);
    EXPECT_NE(copy, played.world());
    EXPECT_EQ(copy.stateHash(), played.world().stateHash()) << "rising points are no part of play";
}

TEST(World, HasAnotherHashForWhatOnlyLaterFramesShow) {
    constexpr void (*kChanges[])(Attempt&) = {
        [](Attempt&) {},
        [](Attempt& attempt) { attempt.map.fillDistances(0, 0, 0); },
        [](Attempt& attempt) { attempt.map.cellAt(1, 1).holeOccupied = true; },
        [](Attempt& attempt) { --attempt.bonuses.countdown; },
        [](Attempt& attempt) { attempt.bonuses.anchorTimer = 1; },
        [](Attempt& attempt) { attempt.bonuses.invisibilityTimer = 1; },
        [](Attempt& attempt) { spawnBonus(attempt.bonuses, 1, 0, BonusKind::Skull); },
        [](Attempt& attempt) { spawnBonus(attempt.bonuses, 1, 0, BonusKind::Bomb); },
        [](Attempt& attempt) { attempt.enemies[0].setSpeed(kAnchoredSpeed); },
        [](Attempt& attempt) { attempt.enemies[0].undoMove(); },
        [](Attempt& attempt) { attempt.end(LossCause::Quit); },
        [](Attempt& attempt) { attempt.end(LossCause::Load); },
    };
    std::set<std::uint64_t> seen;
    for (const auto change : kChanges) {
        Attempt attempt = attemptOn({". . .", "= = ="});
        attempt.enemies.emplace_back(2, 0, EnemyKind::Dog).update(attempt);
        change(attempt);
        StateHash hash;
        attempt.addTo(hash);
        EXPECT_TRUE(seen.insert(hash.value()).second) << "change " << seen.size() << " is not seen";
    }
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
