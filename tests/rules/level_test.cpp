// Level files: what is written reads back, what is damaged is refused with a reason, and the map that is built from
// one.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <thread>
#include <utility>

#include "bytes.h"
#include "level_file.h"
#include "level_list.h"
#include "level_loader.h"
#include "level_writer.h"
#include "map_cell.h"
#include "memory_source.h"
#include "rules.h"

namespace grub {
namespace {

LevelFile smallLevel() { return drawnLevel({"@ k .", "# # #"}); }

TEST(LevelFile, ReadsWhatItWrites) {
    LevelFile level = smallLevel();
    for (std::size_t i = 0; i < level.header.size(); ++i) level.header[i] = static_cast<std::uint8_t>(200 + i);
    level.records[2] = {.base = 0x0102, .layer2 = 3, .layer3 = 4, .layer4 = 5, .code = 25, .layer5 = 0xFFFF};
    for (const std::uint8_t version : {std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{4}}) {
        SCOPED_TRACE(int{version});
        level.version = version;
        const Bytes bytes = writeLevelFile(level);
        EXPECT_EQ(bytes.size(), 32U + 6U * (version < 4 ? 6U : 12U));
        std::string reason;
        const auto read = readLevelFile(bytes, reason);
        ASSERT_TRUE(read) << reason;
        const CellRecord shortRecord{.base = 0x0102, .layer2 = 3, .code = 25};
        EXPECT_EQ(read->records[2], version < 4 ? shortRecord : level.records[2]);
        EXPECT_EQ(writeLevelFile(*read), bytes) << "the uninterpreted bytes come back too";
    }
}

// Every byte of the smallest level, in the order of the file.
TEST(LevelFile, OfOneCellIsFortyFourBytes) {
    Bytes expected(44, 0);
    expected[20] = 4;
    expected[24] = expected[28] = 1;
    expected[32] = 20;
    expected[40] = 8;
    EXPECT_EQ(writeLevelFile(drawnLevel({"@"})), expected);
}

const struct {
    const char* what;
    void (*damage)(Bytes&);
    const char* reason;
} kFaults[] = {
    {"cut in its header", [](Bytes& b) { b.resize(31); }, "shorter than its header of 32 bytes"},
    {"version 0", [](Bytes& b) { b[20] = 0; }, "version 0 at byte 20, known are 1 to 4"},
    {"a version of the future", [](Bytes& b) { b[20] = 5; }, "version 5 at byte 20, known are 1 to 4"},
    {"no columns", [](Bytes& b) { b[24] = 0; }, "0 x 2 cells, a side may have 1 to 100"},
    {"too many rows", [](Bytes& b) { b[28] = 101; }, "3 x 101 cells, a side may have 1 to 100"},
    {"a negative side", [](Bytes& b) { b[27] = 0x80; }, "-2147483645 x 2 cells, a side may have 1 to 100"},
    {"the last byte missing", [](Bytes& b) { b.pop_back(); }, "72 bytes of cells announced, 71 there"},
    {"the hero taken away", [](Bytes& b) { b[40] = 0; }, "no cell with the hero (object code 8)"},
    {"too many objects", [](Bytes& b) { b = writeLevelFile(drawnLevel({"@" + std::string(kMaxObjects + 1, 'd')})); },
     "41 objects, at most 40 are possible"},
};

TEST(LevelFile, IsRefusedWithAReason) {
    std::string reason;
    const Bytes good = writeLevelFile(smallLevel());
    ASSERT_TRUE(readLevelFile(good, reason)) << reason;
    Bytes longer = good;
    longer.push_back(1);
    EXPECT_TRUE(readLevelFile(longer, reason)) << "bytes behind the cells: " << reason;
    EXPECT_TRUE(readLevelFile(writeLevelFile(drawnLevel({"@" + std::string(kMaxObjects, 'd')})), reason)) << reason;
    for (const auto& fault : kFaults) {
        Bytes bad = good;
        fault.damage(bad);
        EXPECT_FALSE(readLevelFile(bad, reason)) << fault.what;
        EXPECT_EQ(reason, fault.reason) << fault.what;
    }
}

// Block 10 is an ornament without a type, 11 has a picture that is not loaded.
constexpr const char* kBlocks =
    "[1]\r\ntype=1\r\nsprite=51\r\nspriteFire=88\r\nspriteRost=90\r\nspriteFon=73\r\n[2]\r\ntype=1\r\n"
    "[3]\r\ntype=2\r\n[4]\r\ntype=3\r\n[5]\r\ntype=5\r\n[6]\r\ntype=6\r\nspriteRost=90\r\n"
    "[8]\r\ntype=8\r\nspriteRost=90\r\nsprite=51\r\n[9]\r\ntype=9\r\n[10]\r\nsprite=51\r\n"
    "[11]\r\nsprite=999\r\n[12]\r\ntype=77\r\n[14]\r\nsprite=36\r\n";

class LevelLoaderTest : public testing::Test {
protected:
    void SetUp() override {
        source_.put(std::string(kBlockTableName), kBlocks);
        ASSERT_TRUE(loader_.loadBlockTypes());
        // The first of two counts.
        for (const auto& [number, id] : {std::pair{51, 17}, {51, 18}, {88, 83}, {90, 84}, {73, 37}, {36, 0}})
            loader_.spriteNumbers().addSpriteNumber(number, static_cast<std::int16_t>(id));
    }

    MapCell cellOf(const CellRecord& record) {
        LevelFile file = drawnLevel({"@"});
        file.records = {record};
        std::string reason;
        return loader_.build(file, reason).value().cellAt(0, 0);
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
        {"an exit shows its opening's first picture, not its own", {.base = 8}, "0 8 84 84 exit"},
        {"a spawn point", {.base = 9}, "0 0 0 -1 spawn"},
        {"a picture that is not loaded", {.base = 11}, "0 0 0 -1"},
        {"an unknown type", {.base = 12}, "4 4 0 -1"},
        {"a layer gives an empty cell a type", {.base = 10, .layer2 = 3}, "2 2 17 -1"},
        {"but not a floor", {.base = 1, .layer2 = 3}, "1 1 17 84"},
        {"the first layer that has one", {.base = 10, .layer3 = 3, .layer5 = 5}, "2 2 17 -1"},
        {"an ornament does not shut the exit", {.base = 8, .layer2 = 10}, "0 8 84 84 exit"},
        {"a spawn point may lie in a floor", {.base = 9, .layer2 = 1}, "1 1 0 -1 spawn"},
        {"an exit in a layer opens as its base does", {.base = 10, .layer2 = 8}, "0 8 -1 -1 exit"},
    };
    for (const auto& row : rows) EXPECT_EQ(told(cellOf(row.record)), row.cell) << row.what;
    const MapCell floor = cellOf({.base = 1});
    EXPECT_EQ(floor.fireSprite, 83);
    EXPECT_EQ(floor.fonSprite, 37);
    EXPECT_EQ(floor.baseSprite, 17);
}

TEST_F(LevelLoaderTest, LaysLayersOverTheBase) {
    const MapCell cell = cellOf({.base = 1, .layer2 = 10, .layer3 = 11, .layer4 = 14, .layer5 = 2});
    EXPECT_EQ(cell.layer2Sprite, 17);
    EXPECT_EQ(cell.layer3Sprite, -1) << "a picture that is not loaded";
    EXPECT_EQ(cell.layer4Sprite, 0) << "picture 0 in a layer is never seen";
    EXPECT_EQ(cell.layer5Sprite, 0) << "a block without a picture";
}

TEST_F(LevelLoaderTest, PutsTheHeroAtTheLastStartAndTellsKeysApart) {
    LevelFile file = drawnLevel({"@ k k @"});
    file.records[2].code = object_code::kHangingKey;
    std::string reason;
    const LevelMap map = loader_.build(file, reason).value();
    EXPECT_EQ(map.heroStart(), (CellPosition{3, 0}));
    EXPECT_EQ(map.cellAt(1, 0).keyKind, 1);
    EXPECT_EQ(map.cellAt(2, 0).keyKind, 0);
}

TEST_F(LevelLoaderTest, ReadsFromThePackageAndNamesWhatItRefuses) {
    const std::string name = "a.lvl";
    std::string reason;
    EXPECT_FALSE(loader_.load(name, reason));
    EXPECT_EQ(reason, name + ": there is no such file");
    const struct {
        Drawing level;
        const char* reason;  // empty when it is taken
    } rows[] = {
        {Drawing({"@" + std::string(kMaxEnemies, 'd')}), ""},
        {Drawing({"@r" + std::string(kMaxEnemies, 'd')}), ": 21 enemies, at most 20 are possible"},
        {Drawing({"@" + std::string(kMaxSpawnPoints + 1, 's')}), ": 51 spawn points, at most 50 are possible"},
    };
    for (const auto& row : rows) {
        source_.put(name, writeLevelFile(drawnLevel(row.level)));
        EXPECT_EQ(loader_.load(name, reason).has_value(), *row.reason == '\0');
        EXPECT_EQ(reason, *row.reason == '\0' ? "" : name + row.reason);
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
