// Level files: what is written reads back, what is damaged is refused with a reason.
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
    level.records[2] = {.base = 0x0102, .layer2 = 3, .layer3 = 4, .layer4 = 5, .code = 25, .layer5 = 0xFFFF};
    for (const std::uint8_t version : {std::uint8_t{1}, std::uint8_t{2}, std::uint8_t{3}, std::uint8_t{4}}) {
        SCOPED_TRACE(int{version});
        level.version = version;
        const Bytes bytes = writeLevelFile(level);
        EXPECT_EQ(bytes.size(), 32U + 6U * (version < 4 ? 6U : 12U));
        std::string reason;
        const auto read = readLevelFile(bytes, reason);
        ASSERT_TRUE(read) << reason;
        EXPECT_EQ(read->version, version);
        EXPECT_EQ(read->width, 3);
        EXPECT_EQ(read->height, 2);
        EXPECT_EQ(read->header[19], level.header[19]);
        const CellRecord shortRecord{.base = 0x0102, .layer2 = 3, .code = 25};
        EXPECT_EQ(read->records[2], version < 4 ? shortRecord : level.records[2]);
        EXPECT_EQ(writeLevelFile(*read), bytes) << "the uninterpreted bytes come back too";
    }
}

// Every byte of the smallest level, in the order of the file.
TEST(LevelFile, OfOneCellIsFortyFourBytes) {
    Bytes expected(32, 0);
    expected[20] = 4;
    expected[24] = 1;
    expected[28] = 1;
    const Bytes record{20, 0, 0, 0, 0, 0, 0, 0, 8, 0, 0, 0};
    expected.insert(expected.end(), record.begin(), record.end());
    EXPECT_EQ(writeLevelFile(drawnLevel({"@"})), expected);
}

struct LevelFault {
    const char* what;
    void (*damage)(Bytes&);
    const char* reason;
};

const LevelFault kFaults[] = {
    {"cut in its header", [](Bytes& b) { b.resize(31); }, "shorter than its header of 32 bytes"},
    {"version 0", [](Bytes& b) { b[20] = 0; }, "version 0 at byte 20, known are 1 to 4"},
    {"a version of the future", [](Bytes& b) { b[20] = 5; }, "version 5 at byte 20, known are 1 to 4"},
    {"no columns", [](Bytes& b) { b[24] = 0; }, "0 x 2 cells, a side may have 1 to 100"},
    {"too many rows", [](Bytes& b) { b[28] = 101; }, "3 x 101 cells, a side may have 1 to 100"},
    {"sides whose product wraps", [](Bytes& b) { b[26] = b[30] = 1; }, "65539 x 65538 cells, a side may have 1 to 100"},
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
    for (const LevelFault& fault : kFaults) {
        Bytes bad = good;
        fault.damage(bad);
        EXPECT_FALSE(readLevelFile(bad, reason)) << fault.what;
        EXPECT_EQ(reason, fault.reason) << fault.what;
    }
}

}  // namespace
}  // namespace grub
