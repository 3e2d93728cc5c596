#include "level_loader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <thread>

#include "level_list.h"
#include "level_writer.h"
#include "map_cell.h"
#include "memory_source.h"
#include "rules.h"

namespace grub {
namespace {

constexpr const char* kBlocks =
    "[1]\r\ntype=1\r\nsprite=51\r\nspriteFire=88\r\nspriteRost=90\r\nspriteFon=73\r\n"
    "[2]\r\ntype=1\r\n"
    "[3]\r\ntype=2\r\n"
    "[4]\r\ntype=3\r\n"
    "[5]\r\ntype=5\r\n"
    "[6]\r\ntype=6\r\nspriteRost=90\r\n"
    "[7]\r\ntype=4\r\n"
    "[8]\r\ntype=8\r\nspriteRost=90\r\nsprite=51\r\n"
    "[9]\r\ntype=9\r\n"
    "[10]\r\nsprite=51\r\n"   // an ornament without a type
    "[11]\r\nsprite=999\r\n"  // a picture that is not loaded
    "[12]\r\ntype=77\r\n"
    "[13]\r\ntype=8\r\n"
    "[14]\r\nsprite=36\r\n";

class LevelLoaderTest : public testing::Test {
protected:
    void SetUp() override {
        source_.put(std::string(kBlockTableName), kBlocks);
        ASSERT_TRUE(loader_.loadBlockTypes());
        SpriteNumbers& numbers = loader_.spriteNumbers();
        numbers.addSpriteNumber(51, 17);
        numbers.addSpriteNumber(51, 18);  // the first of two counts
        numbers.addSpriteNumber(88, 83);
        numbers.addSpriteNumber(90, 84);
        numbers.addSpriteNumber(73, 37);
        numbers.addSpriteNumber(36, 0);
    }

    MapCell cellOf(const CellRecord& record) {
        LevelFile file;
        file.width = 1;
        file.height = 1;
        file.records = {record};
        std::string reason;
        const auto map = loader_.build(file, reason);
        EXPECT_TRUE(map) << reason;
        return map->cellAt(0, 0);
    }

    MemorySource source_;
    LevelLoader loader_{source_};
};

/// Type and base type by number, picture, picture of its change; then what else it is.
std::string told(const MapCell& cell) {
    std::ostringstream text;
    text << static_cast<int>(cell.type) << ' ' << static_cast<int>(cell.baseType) << ' ' << cell.sprite << ' '
         << cell.rostSprite << (cell.isExit ? " exit" : "") << (cell.isSpawnPoint ? " spawn" : "");
    return text.str();
}

TEST_F(LevelLoaderTest, BuildsCellsFromBlocks) {
    const struct {
        const char* what;
        CellRecord record;
        const char* cell;
    } rows[] = {
        {"a floor with pictures", {.base = 1}, "1 1 17 84"},
        {"a floor with the default of its type", {.base = 2}, "1 1 3 -1"},
        {"a ladder", {.base = 3}, "2 2 5 -1"},
        {"a pipe", {.base = 4}, "3 3 4 -1"},
        {"rock", {.base = 5}, "5 5 2 -1"},
        {"a hidden ladder is empty at first", {.base = 6}, "0 6 0 84"},
        {"an inert block", {.base = 7}, "4 4 0 -1"},
        {"an exit shows its opening's first picture, not its own", {.base = 8}, "0 8 84 84 exit"},
        {"a spawn point", {.base = 9}, "0 0 0 -1 spawn"},
        {"an ornament without a type", {.base = 10}, "0 0 17 -1"},
        {"a picture that is not loaded", {.base = 11}, "0 0 0 -1"},
        {"an unknown type", {.base = 12}, "4 4 0 -1"},
        {"an exit without an opening", {.base = 13}, "0 8 -1 -1 exit"},
        {"an unknown block", {.base = 500}, "0 0 0 -1"},
        {"a layer gives an empty cell a type", {.base = 10, .layer2 = 3}, "2 2 17 -1"},
        {"but not a floor", {.base = 1, .layer2 = 3}, "1 1 17 84"},
        {"the first layer that has one", {.base = 10, .layer3 = 3, .layer5 = 5}, "2 2 17 -1"},
        {"an ornament does not shut the exit", {.base = 8, .layer2 = 10}, "0 8 84 84 exit"},
        {"nor a hidden ladder", {.base = 6, .layer4 = 10}, "0 6 0 84"},
        {"a spawn point may lie in a floor", {.base = 9, .layer2 = 1}, "1 1 0 -1 spawn"},
        {"an exit in a layer opens as its base does", {.base = 10, .layer2 = 8}, "0 8 -1 -1 exit"},
        {"a hidden ladder in a layer", {.base = 10, .layer2 = 6}, "0 6 17 -1"},
        {"a spawn point in a layer", {.base = 10, .layer3 = 9}, "0 0 17 -1 spawn"},
    };
    for (const auto& row : rows) EXPECT_EQ(told(cellOf(row.record)), row.cell) << row.what;
    const MapCell floor = cellOf({.base = 1});
    EXPECT_EQ(floor.fireSprite, 83);
    EXPECT_EQ(floor.fonSprite, 37);
    EXPECT_EQ(floor.baseSprite, 17);
    EXPECT_EQ(cellOf({.base = 2}).fonSprite, -1);
}

TEST_F(LevelLoaderTest, LaysLayersOverTheBase) {
    const MapCell cell = cellOf({.base = 1, .layer2 = 10, .layer3 = 11, .layer4 = 14, .layer5 = 2});
    EXPECT_EQ(cell.layer2Sprite, 17);
    EXPECT_EQ(cell.layer3Sprite, -1) << "a picture that is not loaded";
    EXPECT_EQ(cell.layer4Sprite, 0) << "picture 0 in a layer is never seen";
    EXPECT_EQ(cell.layer5Sprite, 0) << "a block without a picture";
    EXPECT_EQ(cellOf({.base = 1}).layer2Sprite, 0);
}

TEST_F(LevelLoaderTest, PlacesHeroObjectsKeysAndSpawnPoints) {
    LevelFile file = drawnLevel({"@ d k . s", "l r + @ s"});
    file.records[3].code = object_code::kHangingKey;
    file.records[4].code = 0;
    std::string reason;
    const auto map = loader_.build(file, reason);
    ASSERT_TRUE(map) << reason;
    EXPECT_EQ(map->heroStart(), (CellPosition{3, 1})) << "a later start overrides an earlier one";
    const std::vector<LevelObject> objects(map->objects().begin(), map->objects().end());
    EXPECT_EQ(objects, (std::vector<LevelObject>{{1, 0, 9}, {0, 1, 24}, {1, 1, 10}, {2, 1, 27}}));
    EXPECT_EQ(map->keysRemaining(), 2);
    EXPECT_EQ(map->cellAt(2, 0).keyKind, 1);
    EXPECT_EQ(map->cellAt(3, 0).keyKind, 0);
    EXPECT_EQ(map->cellAt(0, 0).code, 8);
    ASSERT_EQ(map->spawnPoints().size(), 2U);
    EXPECT_EQ(map->spawnPoints()[1], (CellPosition{4, 1}));
}

TEST_F(LevelLoaderTest, ReadsFromThePackageAndNamesWhatItRefuses) {
    const std::string name(kLevelNames[2]);
    EXPECT_EQ(name, "levels\\turma\\level05.lvl") << "the list has its own order";
    std::string reason;
    EXPECT_FALSE(loader_.load(name, reason));
    EXPECT_EQ(reason, name + ": there is no such file");
    const struct {
        Drawing level;
        const char* reason;  // empty when it is taken
    } rows[] = {
        {{"@ k", "# #"}, ""},
        {Drawing({"@" + std::string(kMaxEnemies, 'd')}), ""},
        {Drawing({"@r" + std::string(kMaxEnemies, 'd')}), ": 21 enemies, at most 20 are possible"},
        {Drawing({"@" + std::string(kMaxSpawnPoints, 's')}), ""},
        {Drawing({"@" + std::string(kMaxSpawnPoints + 1, 's')}), ": 51 spawn points, at most 50 are possible"},
    };
    for (const auto& row : rows) {
        source_.put(name, writeLevelFile(drawnLevel(row.level)));
        const auto map = loader_.load(name, reason);
        EXPECT_EQ(map.has_value(), *row.reason == '\0');
        EXPECT_EQ(reason, *row.reason == '\0' ? "" : name + row.reason);
        if (map) {
            EXPECT_EQ(map->header()[20], 4);
        }
    }
}

TEST_F(LevelLoaderTest, BuildsNothingWithoutABlockTable) {
    std::string reason;
    for (const bool isThere : {true, false}) {  // first an empty one
        isThere ? source_.put(std::string(kBlockTableName), "") : source_.remove(std::string(kBlockTableName));
        EXPECT_FALSE(loader_.loadBlockTypes());
        EXPECT_FALSE(loader_.build(drawnLevel({"@"}), reason));
        EXPECT_EQ(reason, "the block table levels\\typeblok.ini is missing");
    }
}

TEST(SpriteNumbers, MayGrowWhileALevelIsBuilt) {
    SpriteNumbers numbers;
    std::thread loader([&] {
        for (std::int16_t id = 0; id < 400; ++id) numbers.addSpriteNumber(id, id);
    });
    int known = 0;
    for (int number = 0; known < 400; number = (number + 1) % 400) {
        const int id = numbers.spriteIdOf(number);
        ASSERT_TRUE(id == -1 || id == number);
        known = id == number ? known + 1 : 0;
    }
    loader.join();
    EXPECT_EQ(numbers.spriteIdOf(399), 399);
}

}  // namespace
}  // namespace grub
