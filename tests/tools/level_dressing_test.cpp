#include "level_dressing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "level_test_palette.h"

namespace grub {
namespace {

LevelFile dressed(const std::string& text) {
    TextError error;
    const auto source = parseLevelSource(text, error);
    const auto level = source ? dressLevel(*source, testPalette(), error) : std::nullopt;
    EXPECT_TRUE(level) << error.line << ": " << error.message;
    return level.value_or(emptyLevel(1, 1));
}

/// What a row of a level has in a slot.
std::vector<int> row(const LevelFile& level, int y, Slot slot = Slot::Base) {
    std::vector<int> values;
    values.reserve(static_cast<std::size_t>(level.width));
    for (int x = 0; x < level.width; ++x) values.push_back(valueIn(recordAt(level, x, y), slot));
    return values;
}

using Ids = std::vector<int>;

TEST(LevelDressing, EndsOfFloorsStandInAirAndNowhereElse) {
    const Ids ids = row(dressed(sourceOf("..........\n.##.#.H##X")), 1);
    EXPECT_EQ(Ids(ids.begin() + 1, ids.begin() + 3), (Ids{11, 12}));  // left and right end
    EXPECT_EQ(ids[4], 13);                                            // both
    EXPECT_EQ(Ids(ids.begin() + 7, ids.begin() + 9), (Ids{10, 10}));  // a ladder and a block carry the floor on
    EXPECT_EQ(row(dressed(sourceOf("..\n##")), 1), (Ids{10, 10}));    // so does the level's edge
}

TEST(LevelDressing, FloorsBelowMasonryHaveNoCap) {
    const Ids ids = row(dressed(sourceOf("#X..\n###.")), 1);
    EXPECT_EQ(Ids(ids.begin(), ids.begin() + 3), (Ids{14, 14, 12}));
}

TEST(LevelDressing, TheFirstRowLooksAsIfMasonryWentOnAboveIt) {
    EXPECT_EQ(row(dressed(sourceOf("##.\n...")), 0)[0], 14);
}

TEST(LevelDressing, PipesHaveEndsAndAJointInEveryThirdColumn) {
    EXPECT_EQ(row(dressed(sourceOf("H-------.-.-")), 0), (Ids{30, 41, 40, 40, 44, 40, 40, 42, 0, 43, 0, 41}));
}

TEST(LevelDressing, LaddersHaveATopAndAFootOnlyInsideTheLevel) {
    const LevelFile level = dressed(sourceOf("H.\nH.\n.H\n.H\n.."));
    EXPECT_EQ(row(level, 0)[0], 30);
    EXPECT_EQ(row(level, 1)[0], 32);
    EXPECT_EQ(row(level, 2)[1], 31);
    EXPECT_EQ(row(level, 3)[1], 32);
}

TEST(LevelDressing, AShadowFallsBelowMasonryUnlessTheSourceTakesItAway) {
    const LevelFile level = dressed(sourceOf("#XH.\n#.HH", "layer3 none 1 1\n"));
    EXPECT_EQ(row(level, 0, Slot::Layer3), (Ids{0, 0, 0, 0}));
    EXPECT_EQ(row(level, 1, Slot::Layer3), (Ids{0, 0, 0, 0}));
    EXPECT_EQ(row(dressed(sourceOf("#XH.\n#.HH")), 1, Slot::Layer3), (Ids{0, 80, 0, 0}));
}

TEST(LevelDressing, VariantsDependOnThePlaceAlone) {
    const std::string wide = std::string(40, '.') + "\n" + std::string(40, '.');
    const Ids first = row(dressed(sourceOf(wide)), 1);
    EXPECT_EQ(first, row(dressed(sourceOf(wide)), 1));
    EXPECT_EQ(first, row(dressed(sourceOf(std::string(40, '#') + "\n" + std::string(40, '.'))), 1));
    for (const int variant : {0, 1, 2}) EXPECT_GT(std::count(first.begin(), first.end(), variant), 0) << variant;
    EXPECT_GT(std::count(first.begin(), first.end(), 0), 20) << "the plain picture is the most frequent one";
}

TEST(LevelDressing, PlacementsFillTheirSlotAndTheLastOneWins) {
    const LevelFile level = dressed(sourceOf(
        "....",
        "base marble 0 0\nlayer2 lamp 1 0\nlayer3 777 1 0\nlayer4 shade 1 0\nlayer5 82 1 0\nobject drops 2 0 3 0\n"
        "object 99 3 0\n"));
    EXPECT_EQ(recordAt(level, 0, 0).base, 21);
    EXPECT_EQ(recordAt(level, 1, 0).layer2, 81) << "the world's own lamp goes before the common one";
    EXPECT_EQ(recordAt(level, 1, 0).layer3, 777);
    EXPECT_EQ(recordAt(level, 1, 0).layer4, 80);
    EXPECT_EQ(recordAt(level, 1, 0).layer5, 82);
    EXPECT_EQ(recordAt(level, 2, 0).code, 28);
    EXPECT_EQ(recordAt(level, 3, 0).code, 99);
}

TEST(LevelDressing, AThingLargerThanACellSpreadsFromItsUpperLeftCell) {
    const LevelFile level = dressed(sourceOf("....\n....\n....", "layer4 sun 1 1\n"));
    EXPECT_EQ(row(level, 0, Slot::Layer4), (Ids{0, 0, 0, 0}));
    EXPECT_EQ(row(level, 1, Slot::Layer4), (Ids{0, 91, 92, 0}));
    EXPECT_EQ(row(level, 2, Slot::Layer4), (Ids{0, 93, 94, 0}));
}

TEST(LevelDressing, ALegendChangesWhatACharacterMeansAndKeepsItsObject) {
    const LevelFile level = dressed("world t\nlegend X marble\nlegend w wall~2\nlegend k wall~3\nfield\nXwk\nend\n");
    EXPECT_EQ(row(level, 0), (Ids{21, 1, 2}));
    EXPECT_EQ(row(level, 0, Slot::Object), (Ids{0, 0, 20}));
}

TEST(LevelDressing, NamesComeApart) {
    EXPECT_EQ(familyOf("turma.floor.left~2"), "floor");
    EXPECT_EQ(familyOf("turma.wall.crack"), "wall.crack");
    EXPECT_EQ(familyOf("shade"), "shade");
    EXPECT_EQ(worldOf("turma.wall"), "turma");
    EXPECT_EQ(worldOf("shade"), "");
}

}  // namespace
}  // namespace grub
