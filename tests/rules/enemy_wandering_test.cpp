#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "drawn_world.h"

namespace grub {
namespace {

// Which quarter of its range each number of the generator falls into. As a direction: left, right, up, down; 0 also
// takes a ladder. 4 is what the division leaves over.
using Quarters = std::vector<int>;

std::uint32_t seedDrawing(const Quarters& quarters) {
    return seedWhere([&](WorldRandom random) {
        return std::ranges::all_of(quarters, [&](int quarter) { return random.next() / 8191 == quarter; });
    });
}

Enemy& placed(Attempt& attempt, int x, int y) { return attempt.enemies.emplace_back(x, y, EnemyKind::Dog); }

void update(Attempt& attempt, int times) {
    for (int i = 0; i < times; ++i) attempt.enemies[0].update(attempt);
}

int drawsOf(const Attempt& attempt, std::uint32_t seed) {
    int count = 0;
    for (WorldRandom random(seed); random.state() != attempt.random.state(); random.next()) ++count;
    return count;
}

// With seed 1 the quarters are 0 2 0 3 2 1, 1 3 3 2 0: left, up, left, down and up lead nowhere, then right; at the
// other end right, down twice and up, then left.
TEST(EnemyWandering, GoesLeftFirstAndDrawsOnlyWhereItHasNoWay) {
    WorldStart start;
    start.seed = 1;
    auto world = worldFrom({"@ # . . d", "# # # # #"}, start);
    const struct {
        int frame;
        int x;
        int draws;
    } rows[] = {{0, 252, 0},  {31, 128, 0}, {32, 128, 0}, {33, 128, 1},  {37, 128, 5}, {38, 132, 6},
                {69, 256, 6}, {70, 256, 6}, {71, 256, 7}, {74, 256, 10}, {75, 252, 11}};
    for (const auto& row : rows) {
        world.runTo(row.frame);
        EXPECT_EQ(world.enemy().x, row.x) << row.frame;
        EXPECT_EQ(world.draws(), row.draws) << row.frame;
    }
}

const Drawing kShut{"# . #", "# H #", "# H #", "# # #"};
const Drawing kOpen{"# . #", ". H .", "# H #", "# # #"};
const Drawing kOpenRight{"# . #", "# H .", "# H #", "# # #"};
const Drawing kTop{"# . #", "# . #", "# H #", "# # #"};
const Drawing kFoot{"# . #", "# H #", "# # #"};

const struct {
    const char* what;
    Drawing map;
    Quarters numbers;
    int updates;
    int vx;
    int vy;
} kLadders[] = {
    {"takes no ladder", kShut, {1, 1}, 1, 0, 0},
    {"goes up where left is shut", kShut, {0, 1}, 1, 0, -4},
    {"goes down where left is shut", kShut, {1, 0}, 1, 0, 4},
    {"goes down when both hit", kShut, {0, 0}, 1, 0, 4},
    {"asks once at a ladder's foot", kFoot, {0}, 1, 0, -4},
    {"asks once on top of a ladder", kTop, {0}, 1, 0, 4},
    {"goes left past both", kOpen, {1, 1}, 1, -4, 0},
    {"leaves its way left for a ladder", kOpen, {0, 1}, 1, 0, -4},
    {"asks for no ladder where right is shut", kShut, {1, 1, 1}, 2, 0, 0},
    {"leaves its way right for a ladder", kOpenRight, {1, 1, 1, 0, 1}, 2, 0, -4},
    {"goes right past both", kOpenRight, {1, 1, 1, 1, 1}, 2, 4, 0},
    {"climbs when it wants up", kShut, {1, 1, 2}, 2, 0, -4},
    {"climbs down when it wants down", kShut, {1, 1, 3}, 2, 0, 4},
    {"stands for what is left over", kShut, {1, 1, 4}, 2, 0, 0},
    {"and chooses anew", kShut, {1, 1, 4, 3}, 3, 0, 4},
};

TEST(EnemyWandering, TakesLaddersUnaskedAndDrawsForThoseItReachesOnly) {
    for (const auto& row : kLadders) {
        SCOPED_TRACE(row.what);
        const std::uint32_t seed = seedDrawing(row.numbers);
        Attempt attempt = attemptOn(row.map, seed);
        Enemy& dog = placed(attempt, 1, 1);
        for (int i = 0; i < row.updates; ++i) dog.update(attempt);
        EXPECT_EQ(dog.vx, row.vx);
        EXPECT_EQ(dog.vy, row.vy);
        EXPECT_EQ(drawsOf(attempt, seed), static_cast<int>(row.numbers.size()));
    }
}

TEST(EnemyWandering, ClimbsOutOfALadderIntoWhateverIsThere) {
    Attempt underRock = attemptOn({"#", "H", "#"}, seedDrawing({0}));
    placed(underRock, 0, 1);
    update(underRock, 16);
    EXPECT_EQ(underRock.enemies[0].y, 0);
    EXPECT_EQ(underRock.enemies[0].state(), EnemyState::Roaming);
    update(underRock, 1);
    EXPECT_EQ(underRock.enemies[0].state(), EnemyState::Dead);

    Attempt underFloor = attemptOn({".", "=", "H", "#"}, seedDrawing({0}));
    placed(underFloor, 0, 2);
    update(underFloor, 17);
    EXPECT_EQ(underFloor.enemies[0].y, 64);
    EXPECT_EQ(underFloor.enemies[0].state(), EnemyState::Roaming) << "it stands inside the floor";

    Attempt atTheTop = attemptOn({"H", "H", "#"}, seedDrawing({0, 1}));
    placed(atTheTop, 0, 0);
    update(atTheTop, 1);
    EXPECT_EQ(atTheTop.enemies[0].direction(), EnemyDirection::Up);
    EXPECT_EQ(atTheTop.enemies[0].y, 0);
    update(atTheTop, 1);
    EXPECT_EQ(atTheTop.enemies[0].direction(), EnemyDirection::Undecided);
}

TEST(EnemyWandering, ChoosesAtEveryCellItFallsThrough) {
    Attempt attempt = attemptOn({".", ".", ".", "#"});
    placed(attempt, 0, 0);
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(attempt.enemies[0].y, row * 64);
        update(attempt, 1);
        EXPECT_EQ(drawsOf(attempt, 1), row) << "the first direction was left";
        if (row < 2) update(attempt, 15);
    }
}

TEST(EnemyWandering, KeepsItsDirectionThroughAFall) {
    Attempt attempt = attemptOn({". . .", ". . .", "# # #"});
    placed(attempt, 2, 0);
    update(attempt, 17);
    EXPECT_EQ(attempt.enemies[0].y, 64);
    EXPECT_EQ(attempt.enemies[0].x, 124);
    EXPECT_EQ(drawsOf(attempt, 1), 0);
}

}  // namespace
}  // namespace grub
