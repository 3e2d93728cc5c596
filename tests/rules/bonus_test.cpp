#include "bonus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "drawn_world.h"

namespace grub {
namespace {

const Drawing kCorridor{"@ . . . .", "= = = = =", "# # # # #"};

/// On kCorridor, or a longer one: the bonus lies beside the hero from frame 249 on. Right pressed in frame n takes it
/// in frame n + 11, three frames of turning and eight of walking later.
DrawnWorld besideHim(BonusKind kind, const Drawing& corridor = kCorridor) {
    return worldFrom(corridor, startWithBonus(corridor, kind, {1, 0}));
}

std::string longCorridor(std::size_t columns, const std::string& symbol) {
    return "@" + std::string(columns - 2, '.') + symbol;
}

std::size_t lying(const World& world) {
    return static_cast<std::size_t>(
        std::ranges::count_if(world.bonuses().slots, [](auto& slot) { return bool(slot); }));
}

TEST(RandomBonus, DrawsPlaceAndKindWhereThereIsRoom) {
    const Drawing alone{"@", "#"};
    const std::uint32_t noKind = seedWhere([](WorldRandom random) {
        const bool left = random.next() / (32767 / 2) == 0;
        random.next();
        return left && random.next() / 5461 == 6;
    });
    const std::uint32_t anyKind = startWithBonus(kCorridor, BonusKind::Bomb, {3, 0}).seed;
    const struct {
        const char* what;
        Drawing map;
        int level;
        std::uint32_t seed;
        int draws;
        std::size_t bonuses;
    } rows[] = {
        {"never in the first level", kCorridor, 0, anyKind, 0, 0},
        {"in a free cell", kCorridor, 1, anyKind, 3, 1},
        {"not in rock, nor on the hero", alone, 1, 7, 2, 0},
        {"none for the largest numbers", {". @", ". ."}, 1, noKind, 3, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        WorldStart start;
        start.levelIndex = row.level;
        start.seed = row.seed;
        auto world = worldFrom(row.map, start);
        EXPECT_EQ(world.runTo(248).draws(), 0);
        EXPECT_EQ(world.runTo(249).draws(), row.draws);
        EXPECT_EQ(lying(world.world()), row.bonuses);
        EXPECT_EQ(world.runTo(498).draws(), row.draws);
        if (row.map == alone) {
            EXPECT_EQ(world.runTo(499).draws(), 4) << "after a failure it waits as long";
        }
    }
}

TEST(RandomBonus, IsTakenFromTheNextFrameUntilItsLastOfTwoHundred) {
    auto atOnce = besideHim(BonusKind::Heart).script("239:+R");
    EXPECT_EQ(atOnce.runTo(248).x(), 56);
    EXPECT_EQ(atOnce.runTo(300).framesOf(SoundId::Heart), std::vector<int>{250});
    auto late = besideHim(BonusKind::Heart).script("437:+R");
    EXPECT_EQ(late.runTo(480).framesOf(SoundId::Heart), std::vector<int>{448});
    auto tooLate = besideHim(BonusKind::Heart).script("438:+R");
    EXPECT_EQ(lying(tooLate.runTo(448).world()), 1U);
    EXPECT_EQ(lying(tooLate.runTo(449).world()), 0U);
    EXPECT_TRUE(tooLate.runTo(480).framesOf(SoundId::Heart).empty());
}

TEST(LevelHeart, LiesForFrames0To198InTheFirstLevelToo) {
    auto taken = worldFrom({"@ +", "# #"}).script("187:+R");
    EXPECT_EQ(taken.runTo(197).world().lives(), 3);
    EXPECT_EQ(taken.runTo(198).world().lives(), 4);
    EXPECT_EQ(taken.world().score(), 100);
    EXPECT_EQ(lying(taken.world()), 1U) << "it is drawn once more";
    EXPECT_EQ(lying(taken.runTo(199).world()), 0U);
    auto missed = worldFrom({"@ +", "# #"}).script("188:+R");
    EXPECT_EQ(lying(missed.runTo(198).world()), 1U);
    EXPECT_EQ(missed.runTo(250).world().lives(), 3);
}

TEST(Bonus, IsHeardAndScores) {
    const struct {
        BonusKind kind;
        int sound;
    } rows[] = {{BonusKind::Invisibility, 20}, {BonusKind::Skull, 24},  {BonusKind::Anchor, 18},
                {BonusKind::Bomb, 21},         {BonusKind::Shield, 17}, {BonusKind::Heart, 23}};
    for (const auto& row : rows) {
        auto world = besideHim(row.kind).script("240:+R 252:-R");
        EXPECT_EQ(world.runTo(250).world().score(), 0);
        EXPECT_EQ(world.runTo(270).world().score(), 100);
        EXPECT_EQ(world.framesOf(static_cast<SoundId>(row.sound)), std::vector<int>{251});
    }
}

TEST(Bonus, ActsWithAllOthersOfItsCellInTheOrderOfSlotsAndOnce) {
    Attempt attempt = attemptOn({"@ .", "# #"});
    Hero hero(attempt.map);
    spawnBonus(attempt.bonuses, 0, 0, BonusKind::Shield);
    spawnBonus(attempt.bonuses, 1, 0, BonusKind::Heart);
    spawnBonus(attempt.bonuses, 0, 0, BonusKind::Anchor);
    spawnBonus(attempt.bonuses, 0, 0, BonusKind::Anchor);
    pickUpBonuses(attempt, hero);
    pickUpBonuses(attempt, hero);
    ASSERT_EQ(attempt.sounds.all().size(), 2U);
    EXPECT_EQ(attempt.sounds.all()[0].sound, SoundId::Shield);
    EXPECT_EQ(attempt.sounds.all()[1].sound, SoundId::Anchor);
    EXPECT_EQ(attempt.score, 300);
    EXPECT_EQ(attempt.bonuses.anchorTimer, 500) << "a second anchor begins its time anew";
}

TEST(Bonus, FindsNoTwentyFirstSlot) {
    Bonuses bonuses;
    for (int i = 0; i < 21; ++i) spawnBonus(bonuses, i, 0, BonusKind::Heart);
    EXPECT_EQ(bonuses.slots.back()->cellX(), 19);
}

// The dog from column 36 is at 64 * 20 + 20 after frame 250. The anchor, taken in 251, is for its next decision: it
// comes to cell 20 as fast as before. Slow from frame 256 to 750, it is 34 pixels beyond cell 4 when the anchor has
// ended, and goes there slowly.
TEST(Anchor, CountsFromTheNextCellOn) {
    const Drawing corridor{longCorridor(37, "d"), std::string(37, '#')};
    auto world = besideHim(BonusKind::Anchor, corridor).script("240:+R 251:-R");
    const struct {
        int frame;
        int x;
        int speed;
    } rows[] = {{250, 1300, 4}, {251, 1296, 2}, {255, 1280, 2}, {256, 1278, 2},
                {750, 290, 2},  {751, 288, 4},  {767, 256, 4},  {768, 252, 4}};
    for (const auto& row : rows) {
        EXPECT_EQ(world.runTo(row.frame).enemy().x, row.x) << row.frame;
        EXPECT_EQ(world.enemy().speed(), row.speed) << row.frame;
    }
}

// Both come nearer by 12 pixels a frame: 36 apart after frame 262, 24 after 263.
TEST(Skull, KillsBeforeTheVictimCanCatch) {
    std::string way = longCorridor(19, "d");
    way[10] = 's';
    const Drawing corridor{way, std::string(19, '#')};
    auto caught = worldFrom(corridor).script("252:+R");
    EXPECT_FALSE(caught.runTo(262).world().ended());
    EXPECT_TRUE(caught.runTo(263).world().ended());

    auto saved = besideHim(BonusKind::Skull, corridor).script("252:+R 265:-R");
    EXPECT_EQ(saved.runTo(263).enemy().state(), EnemyState::Dead);
    EXPECT_EQ(saved.enemy().timer(), 374) << "its first frame has counted";
    EXPECT_FALSE(saved.world().ended());
    EXPECT_EQ(saved.runTo(636).enemy().state(), EnemyState::Dead);
    EXPECT_EQ(saved.runTo(637).enemy().state(), EnemyState::Roaming);
    EXPECT_EQ(saved.enemy().x, 640);
}

TEST(Skull, TakesTheNearestByBothAxesAndTheFirstOfEquals) {
    Attempt attempt = attemptOn({". . . . . .", ". . . . . .", ". . @ . . .", "# # # # # #"});
    const Hero hero(attempt.map);
    attempt.enemies.emplace_back(5, 2, EnemyKind::Dog);   // three cells away
    attempt.enemies.emplace_back(1, 1, EnemyKind::Lady);  // two, round a corner
    attempt.enemies.emplace_back(4, 2, EnemyKind::Rat);   // two
    int dead = 0;
    for (const std::size_t victim : {1U, 2U, 0U}) {
        killNearestEnemy(attempt, hero);
        EXPECT_EQ(attempt.enemies[victim].state(), EnemyState::Dead);
        const auto isDead = [](const Enemy& enemy) { return enemy.state() == EnemyState::Dead; };
        EXPECT_EQ(std::ranges::count_if(attempt.enemies, isDead), ++dead);
    }
    attempt.enemies[0].update(attempt);
    killNearestEnemy(attempt, hero);
    EXPECT_EQ(attempt.enemies[0].timer(), 374) << "the dead cannot die again";
}

TEST(Invisibility, BeginsAtTheNextCellAndEndsWhereHeStands) {
    auto world = besideHim(BonusKind::Invisibility).script("240:+R 251:-R 300:+R 308:-R").runTo(251);
    EXPECT_EQ(world.distances()[0], "1 0 1 2 3");
    EXPECT_TRUE(world.world().heroPicture().halfTransparent);
    EXPECT_EQ(world.runTo(307).distances()[0], "1 0 1 2 3") << "as long as he stands, all know the way";
    EXPECT_EQ(world.runTo(308).distances()[0], ". . . . .");
    EXPECT_EQ(world.x(), 128);
    EXPECT_EQ(world.runTo(750).distances()[0], ". . . . .");
    EXPECT_TRUE(world.world().heroPicture().halfTransparent);
    EXPECT_EQ(world.runTo(751).distances()[0], "2 1 0 1 2");
    EXPECT_FALSE(world.world().heroPicture().halfTransparent);
}

TEST(Shield, HoldsForFourHundredAndNinetyNineChecks) {
    const Drawing corridor{longCorridor(20, "d"), std::string(20, '#')};
    auto world = besideHim(BonusKind::Shield, corridor).script("240:+R 251:-R");
    EXPECT_EQ(world.runTo(749).enemy().x, 64) << "the dog stands on him";
    EXPECT_FALSE(world.world().ended());
    EXPECT_TRUE(world.runTo(750).world().ended());
    EXPECT_EQ(world.world().cause(), LossCause::Dog);
}

TEST(Shield, DoesNotHelpAgainstTheFloor) {
    auto world = besideHim(BonusKind::Shield).script("240:+R 251:-R 252:+X 260:+R");
    EXPECT_FALSE(world.runTo(519).world().ended());
    EXPECT_TRUE(world.world().hero().isShielded());
    EXPECT_TRUE(world.runTo(520).world().ended());
    EXPECT_EQ(world.world().cause(), LossCause::Pit);
}

// The shield is only drawn. Were its picture remembered, each frame would start the strip anew, and a dig never ended.
TEST(Shield, LetsADigEndAsEver) {
    auto world = besideHim(BonusKind::Shield).script("240:+R 251:-R 260:+X 261:+R");
    for (int frame = 260; frame < 264; ++frame) {
        world.runTo(frame);
        EXPECT_EQ(world.world().heroPicture().animation, 140);
        EXPECT_EQ(world.world().heroPicture().frame, frame - 260);
        EXPECT_EQ(world.world().hero().picture().animation, 81);
        EXPECT_EQ(world.x(), 64);
    }
    world.runTo(264);
    EXPECT_EQ(world.x(), 72);
    EXPECT_EQ(world.world().heroPicture().animation, 133);
}

}  // namespace
}  // namespace grub
