#include "level_file.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "level_writer.h"
#include "rules.h"

namespace grub {
namespace {

using Bytes = std::vector<std::uint8_t>;

LevelFile smallLevel() { return drawnLevel({"@ k .", "# # #"}); }

TEST(LevelFile, ReadsWhatItWrites) {
    LevelFile level = smallLevel();
    for (std::size_t i = 0; i < level.header.size(); ++i) level.header[i] = static_cast<std::uint8_t>(200 + i);
    level.records[1] = {.base = 0x0102, .layer2 = 3, .layer3 = 4, .layer4 = 5, .code = 25, .layer5 = 0xFFFF};
    const Bytes bytes = writeLevelFile(level);
    std::string reason;
    const auto read = readLevelFile(bytes, reason);
    ASSERT_TRUE(read) << reason;
    EXPECT_EQ(read->records, level.records);
    EXPECT_EQ(read->header[19], level.header[19]);
    EXPECT_EQ(read->width, 3);
    EXPECT_EQ(read->height, 2);
    EXPECT_EQ(writeLevelFile(*read), bytes) << "the uninterpreted bytes come back too";
}

TEST(LevelFile, HasShortRecordsBeforeVersionFour) {
    LevelFile level = drawnLevel(Drawing(std::vector<std::string>(10, std::string(20, '.'))));
    level.records[7].code = 8;
    level.records[8] = {.base = 1, .layer2 = 2, .layer3 = 3, .layer4 = 4, .code = 20, .layer5 = 5};
    for (const std::uint8_t version : {std::uint8_t{1}, std::uint8_t{2}, std::uint8_t{3}, std::uint8_t{4}}) {
        level.version = version;
        const Bytes bytes = writeLevelFile(level);
        EXPECT_EQ(bytes.size(), version < 4 ? 1232U : 2432U);
        std::string reason;
        const auto read = readLevelFile(bytes, reason);
        ASSERT_TRUE(read) << reason;
        EXPECT_EQ(read->version, version);
        const CellRecord expected = version < 4 ? CellRecord{.base = 1, .layer2 = 2, .code = 20} : level.records[8];
        EXPECT_EQ(read->records[8], expected);
    }
}

// Every byte of the smallest level, in the order of the file.
TEST(LevelFile, OfOneCellIsFortyFourBytes) {
    const Bytes bytes = writeLevelFile(drawnLevel({"@"}));
    Bytes expected(32, 0);
    expected[20] = 4;
    expected[24] = 1;
    expected[28] = 1;
    const Bytes record{20, 0, 0, 0, 0, 0, 0, 0, 8, 0, 0, 0};
    expected.insert(expected.end(), record.begin(), record.end());
    EXPECT_EQ(bytes, expected);
}

struct LevelFault {
    const char* what;
    void (*damage)(Bytes&);
    const char* reason;
};

const LevelFault kFaults[] = {
    {"no version", [](Bytes& b) { b[20] = 0; }, "version 0 at byte 20, known are 1 to 4"},
    {"a version of the future", [](Bytes& b) { b[20] = 5; }, "version 5 at byte 20, known are 1 to 4"},
    {"a negative version", [](Bytes& b) { b[20] = 0xFC; }, "version 252 at byte 20, known are 1 to 4"},
    {"no columns", [](Bytes& b) { b[24] = 0; }, "0 x 2 cells, a side may have 1 to 100"},
    {"no rows", [](Bytes& b) { b[28] = 0; }, "3 x 0 cells, a side may have 1 to 100"},
    {"too many columns", [](Bytes& b) { b[24] = 101; }, "101 x 2 cells, a side may have 1 to 100"},
    {"more rows than bytes", [](Bytes& b) { b[28] = 3; }, "108 bytes of cells announced, 72 there"},
    {"sides whose product wraps", [](Bytes& b) { b[26] = b[30] = 1; }, "65539 x 65538 cells, a side may have 1 to 100"},
    {"a negative side", [](Bytes& b) { b[27] = 0x80; }, "-2147483645 x 2 cells, a side may have 1 to 100"},
    {"the hero taken away", [](Bytes& b) { b[40] = 0; }, "no cell with the hero (object code 8)"},
};

TEST(LevelFile, IsRefusedWithAReason) {
    const Bytes good = writeLevelFile(smallLevel());
    std::string reason;
    ASSERT_TRUE(readLevelFile(good, reason)) << reason;
    for (const LevelFault& fault : kFaults) {
        Bytes bad = good;
        fault.damage(bad);
        EXPECT_FALSE(readLevelFile(bad, reason)) << fault.what;
        EXPECT_EQ(reason, fault.reason) << fault.what;
    }
}

TEST(LevelFile, IsRefusedWhereverItIsCut) {
    for (const std::uint8_t version : {std::uint8_t{1}, std::uint8_t{4}}) {
        LevelFile level = smallLevel();
        level.version = version;
        const Bytes good = writeLevelFile(level);
        for (std::size_t size = 0; size < good.size(); ++size) {
            std::string reason;
            EXPECT_FALSE(readLevelFile(std::span(good).first(size), reason)) << size;
            EXPECT_FALSE(reason.empty()) << size;
        }
    }
}

TEST(LevelFile, MayHaveBytesBehindItsCells) {
    Bytes bytes = writeLevelFile(smallLevel());
    bytes.push_back(1);
    std::string reason;
    EXPECT_TRUE(readLevelFile(bytes, reason)) << reason;
}

TEST(LevelFile, HoldsAtMostFortyObjects) {
    std::string reason;
    LevelFile level = drawnLevel({"@" + std::string(kMaxObjects, 'd')});
    EXPECT_TRUE(readLevelFile(writeLevelFile(level), reason)) << reason;
    level = drawnLevel({"@" + std::string(kMaxObjects + 1, 'd')});
    EXPECT_FALSE(readLevelFile(writeLevelFile(level), reason));
    EXPECT_EQ(reason, "41 objects, at most 40 are possible");
}

}  // namespace
}  // namespace grub
