// Bonuses: when and where they come, how long they lie, what they do.
#include "bonus.h"

#include <gtest/gtest.h>

#include <utility>

#include "scenario.h"

namespace grub {
namespace {

constexpr const char* kCorridor = "@ . . . ./= = = = =/# # # # #";
constexpr const char* kDogAt36 = "@...................................d/#####################################";
constexpr const char* kDogAt18 = "@.........s.......d/###################";
constexpr const char* kDogAt20 = "@...................d/=====================/#####################";
constexpr const char* kDogAt19 = "@..................d/####################";

/// The bonus lies beside the hero of the map from frame 249 on. Right pressed in frame n takes it in frame n + 11,
/// three frames of turning and eight of walking later.
WorldStart besideHim(BonusKind kind, const char* map = kCorridor) {
    return startWithBonus(drawingOf(map), kind, {1, 0});
}

TEST(RandomBonus, DrawsPlaceAndKindWhereThereIsRoom) {
    const WorldStart anyKind = startWithBonus(drawingOf(kCorridor), BonusKind::Bomb, {3, 0});
    WorldStart noKind = anyKind;
    noKind.seed = seedWhere([](WorldRandom random) {
        const bool left = random.next() / (32767 / 2) == 0;
        random.next();
        return left && random.next() / 5461 == 6;
    });
    expectScenarios({
        {"never in the first level", kCorridor, "", "249: draws=0 bonuses=0; 498: draws=0", seeded(anyKind.seed)},
        {"in a free cell", kCorridor, "", "248: draws=0; 249: draws=3 bonuses=1", anyKind},
        {"not in rock, nor on the hero, and then as late as after a bonus", "@/#", "",
         "248: draws=0; 249: draws=2 bonuses=0; 498: draws=2; 499: draws=4", anyKind},
        {"none for the largest numbers", ". @/. .", "", "249: draws=3 bonuses=0", noKind},
    });
}

TEST(Bonus, LiesForItsTime) {
    expectScenarios({
        {"a random one is taken in the next frame", kCorridor, "239 down Right", "248: x=56; 300: heart=250",
         besideHim(BonusKind::Heart)},
        {"or in its last of 200", kCorridor, "437 down Right", "480: heart=448", besideHim(BonusKind::Heart)},
        {"not a frame later", kCorridor, "438 down Right",
         "448: bonuses=1; 449: bonuses=0; 480: heart=", besideHim(BonusKind::Heart)},
        {"one of the level until frame 198, drawn once more when taken", "@ +/# #", "187 down Right",
         "197: lives=3; 198: lives=4 score=100 bonuses=1; 199: bonuses=0"},
        {"not a frame later either", "@ +/# #", "188 down Right", "198: bonuses=1; 250: lives=3"},
    });
}

TEST(Bonus, IsHeardAndScores) {
    constexpr std::pair<BonusKind, const char*> kinds[] = {{BonusKind::Invisibility, "270: score=100 invisible=251"},
                                                           {BonusKind::Skull, "270: skull=251"},
                                                           {BonusKind::Anchor, "270: anchor=251"},
                                                           {BonusKind::Bomb, "270: bomb=251"},
                                                           {BonusKind::Shield, "250: score=0; 270: shield=251"},
                                                           {BonusKind::Heart, "270: heart=251 lives=4"}};
    for (const auto& [kind, wanted] : kinds)
        expectScenarios({{wanted, kCorridor, "240 down Right, 252 up Right", wanted, besideHim(kind)}});
}

TEST(Bonus, ActsWithAllOthersOfItsCellInTheOrderOfSlots) {
    Attempt attempt = attemptOn({"@ .", "# #"});
    Hero hero(attempt.map);
    spawnBonus(attempt.bonuses, 0, 0, BonusKind::Shield);
    spawnBonus(attempt.bonuses, 1, 0, BonusKind::Heart);
    spawnBonus(attempt.bonuses, 0, 0, BonusKind::Anchor);
    spawnBonus(attempt.bonuses, 0, 0, BonusKind::Anchor);
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

TEST(Bonus, Works) {
    expectScenarios({
        // The dog is at 64 * 20 + 20 after frame 250. The anchor, taken in 251, is for its next decision: it comes to
        // cell 20 as fast as before. Slow from frame 256 to 750, it is 34 pixels beyond cell 4 when the anchor has
        // ended, and goes there slowly.
        {"the anchor counts from the next cell on", kDogAt36, "240 down Right, 251 up Right",
         "250: at1=1300,0 speed1=4; 251: at1=1296,0 speed1=2; 255: at1=1280,0; 256: at1=1278,0;"
         "750: at1=290,0 speed1=2; 751: at1=288,0 speed1=4; 767: at1=256,0; 768: at1=252,0",
         besideHim(BonusKind::Anchor, kDogAt36)},
        // It comes to cell 4 in frame 255 and goes two pixels a frame to column 2, where he digs while it is on its
        // way.
        {"it falls and climbs slowly", kDogAt20, "240 down Right, 251 up Right, 300 down X",
         "320: at1=128,2; 351: at1=128,64 timer1=125; 352: timer1=124; 476: at1=128,62 is1=climbs; 508: is1=roams",
         besideHim(BonusKind::Anchor, kDogAt20)},
        // Both come nearer by 12 pixels a frame: 36 apart after frame 262, 24 after 263.
        {"without a skull the dog catches", kDogAt18, "252 down Right", "262: end=no; 263: end=Dog"},
        {"the skull kills before its victim can catch; the first of the 375 frames has counted", kDogAt18,
         "252 down Right, 265 up Right", "263: is1=dead timer1=374 end=no; 636: is1=dead; 637: is1=roams at1=640,0",
         besideHim(BonusKind::Skull, kDogAt18)},
        {"invisibility begins at the next cell and ends where he stands", kCorridor,
         "240 down Right, 251 up Right, 300 down Right, 308 up Right",
         "251: half=yes far0=1,0,1,2,3; 307: far0=1,0,1,2,3;"
         "308: x=128 far0=.,.,.,.,.; 750: half=yes far0=.,.,.,.,.;"
         "751: half=no far0=2,1,0,1,2",
         besideHim(BonusKind::Invisibility)},
        {"the shield holds for 499 checks, with the dog on him", kDogAt19, "240 down Right, 251 up Right",
         "749: at1=64,0 end=no; 750: end=Dog", besideHim(BonusKind::Shield, kDogAt19)},
        {"the shield does not help against the floor", kCorridor,
         "240 down Right, 251 up Right, 252 down X, 260 down Right", "519: end=no; 520: end=Pit",
         besideHim(BonusKind::Shield)},
        // Were the shield's strip remembered, each frame would start the dig anew, and it never ended.
        {"a dig under the shield ends as ever", kCorridor, "240 down Right, 251 up Right, 260 down X, 261 down Right",
         "260: shows=140:0 x=64; 261: shows=140:1; 262: shows=140:2; 263: shows=140:3 x=64; 264: shows=133:0 x=72",
         besideHim(BonusKind::Shield)},
    });
}

TEST(Skull, TakesTheNearestByBothAxesAndTheFirstOfEquals) {
    Attempt attempt = attemptOn({". . . . . .", ". . . . . .", ". . @ . . .", "# # # # # #"});
    const Hero hero(attempt.map);
    attempt.enemies.emplace_back(5, 2, EnemyKind::Dog);   // three cells away
    attempt.enemies.emplace_back(1, 1, EnemyKind::Lady);  // two, round a corner
    attempt.enemies.emplace_back(4, 2, EnemyKind::Rat);   // two
    for (const std::size_t victim : {1U, 2U, 0U}) {
        EXPECT_NE(attempt.enemies[victim].state(), EnemyState::Dead);
        killNearestEnemy(attempt, hero);
        EXPECT_EQ(attempt.enemies[victim].state(), EnemyState::Dead);
    }
}

// A floor that breaks opens the one under it. The floor under his feet stays, and so what it covers.
TEST(Bomb, EatsDownwardsThroughTheFloors) {
    const struct {
        const char* what;
        const char* before;
        int x, y;
        const char* after;
    } rows[] = {
        {"floors all round", ". . . . ./= = = = =/= = = = =/= = @ = =/= = = = =/= = = = =/# # # # #", 2, 3,
         ". . . . ./_ _ _ _ _/_ _ _ _ _/_ _ . _ _/_ _ = _ _/_ _ = _ _/# # # # #"},
        {"a roof keeps all that is under it", "# # # # #/= = = = =/= = @ = =/= = = = =/= = = = =", 2, 2,
         "# # # # #/= = = = =/= = . = =/= = = = =/= = = = ="},
        {"two cells and no more", ". . . . . . ./. . . @ . . ./= = = = = = =/= = = = = = =/= = = = = = =", 3, 1,
         ". . . . . . ./. . . . . . ./= _ _ = _ _ =/= _ _ = _ _ =/= = = = = = ="},
        {"at the map's corner", "@ ./= =", 0, 0, ". ./= _"},
    };
    for (const auto& row : rows) {
        LevelMap map = mapFrom(drawingOf(row.before));
        blast(map, row.x, row.y);
        EXPECT_EQ(drawnMap(map), drawingOf(row.after)) << row.what;
    }
}

// A round of n frames with r game frames between them takes n * (r + 1) + 1 game frames; the drops' r is 2.
TEST(Drops, AreHeardTwoCellsAway) {
    expectScenarios({
        {"across a corner", ". . ~/. . ./@ . ./# # #", "", "60: water=14,30,46", {}, 5},
        {"not three to the side", ". . . ~/@ . . ./# # # #", "", "60: water=", {}, 5},
        {"nor three above", "~/././@/#", "", "60: water=", {}, 5},
    });
}

}  // namespace
}  // namespace grub
