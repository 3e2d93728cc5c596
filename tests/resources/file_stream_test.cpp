#include "file_stream.h"

#include <gtest/gtest.h>
#include <testing.h>

#include <algorithm>
#include <array>
#include <string>

#include "package_writer.h"
#include "scratch_directory.h"

namespace grub {
namespace {

const Bytes kTenBytes = bytesOf("0123456789");

/// What an open with some flags does to a missing file and to one of ten bytes. `landing` is where a written byte lands
/// in the latter; kNowhere: writing fails.
struct OpenRule {
    std::uint32_t flags;
    bool opensMissing;
    bool opensExisting;
    int sizeAfter;
    int landing;
};
constexpr int kNowhere = -1;
// clang-format off
constexpr std::array kOpenRules{
    //       flags missing existing size landing
    OpenRule{0,    false,  false,   10,  kNowhere},
    OpenRule{1,    false,  true,    10,  kNowhere},  // read
    OpenRule{2,    true,   true,    10,  0},         // write
    OpenRule{3,    true,   true,    10,  0},         // both
    OpenRule{4,    false,  false,   10,  kNowhere},
    OpenRule{5,    false,  true,    10,  kNowhere},  // create means nothing to a reader
    OpenRule{6,    true,   true,    0,   0},         // write, emptied
    OpenRule{7,    true,   true,    0,   0},
    OpenRule{8,    false,  false,   10,  kNowhere},
    OpenRule{9,    false,  true,    10,  kNowhere},  // read, from the end
    OpenRule{10,   true,   true,    10,  10},        // write, from the end
    OpenRule{11,   true,   true,    10,  10},
    OpenRule{12,   false,  false,   10,  kNowhere},
    OpenRule{13,   false,  true,    10,  kNowhere},
    OpenRule{14,   true,   true,    0,   0},
    OpenRule{15,   true,   true,    0,   0},
};
// clang-format on

TEST(FileStreamOpening, FollowsTheTableOfFlags) {
    for (const OpenRule& rule : kOpenRules) {
        SCOPED_TRACE("flags " + std::to_string(rule.flags));
        const ScratchDirectory scratch;
        FileStream missing;
        EXPECT_EQ(missing.open(scratch.file("missing").c_str(), rule.flags), rule.opensMissing);
        EXPECT_EQ(std::filesystem::exists(scratch.file("missing")), rule.opensMissing);

        const std::string path = scratch.write("ten", kTenBytes);
        FileStream existing;
        EXPECT_EQ(existing.open(path.c_str(), rule.flags), rule.opensExisting);
        EXPECT_EQ(std::filesystem::file_size(path), static_cast<std::uintmax_t>(rule.sizeAfter));

        const bool writes = existing.write("x", 1) == 1;
        EXPECT_EQ(writes, rule.landing != kNowhere);
        const Bytes after = scratch.read("ten");
        const auto landed = std::find(after.begin(), after.end(), 'x');
        EXPECT_EQ(landed != after.end() ? landed - after.begin() : kNowhere, rule.landing);
    }
}

TEST(FileStreamOpening, KnowsAllSixteenFlags) {
    for (std::size_t i = 0; i < kOpenRules.size(); ++i) EXPECT_EQ(kOpenRules[i].flags, i);
    EXPECT_EQ(kOpenRules.size(), 16u);
}

TEST(FileStreamAppend, MovesToTheEndOnlyOnce) {
    const ScratchDirectory scratch;
    FileStream file(scratch.write("ten", kTenBytes).c_str(), kOpenRead | kOpenWrite | kOpenAppend);
    char two[2];
    EXPECT_EQ(file.readAt(3, two, 2), 2);
    EXPECT_EQ(file.write("x", 1), 1);
    EXPECT_EQ(scratch.read("ten"), bytesOf("01234x6789"));
}

TEST(FileStreamAppend, LeavesAReaderAtTheEnd) {
    const ScratchDirectory scratch;
    FileStream file(scratch.write("ten", kTenBytes).c_str(), kOpenRead | kOpenAppend);
    char room[1];
    EXPECT_EQ(file.read(room, 1), 0);
    EXPECT_EQ(file.readAt(9, room, 1), 1);
}

TEST(FileStreamStatus, IsStickyStepByStep) {
    const ScratchDirectory scratch;
    const std::string path = scratch.write("ten", kTenBytes);
    char room[16];
    FileStream file;
    EXPECT_EQ(file.status(), kStreamNotOpen);
    EXPECT_FALSE(file.open(scratch.file("missing").c_str(), kOpenRead));
    EXPECT_EQ(file.status(), kStreamNotOpen);
    EXPECT_EQ(file.read(room, 1), -1);
    EXPECT_EQ(file.status(), kStreamNotOpen | kStreamFailed);

    EXPECT_TRUE(file.open(path.c_str(), kOpenRead));
    EXPECT_EQ(file.status(), 0);
    EXPECT_EQ(file.readAt(7, room, 10), 3);
    EXPECT_EQ(file.status(), 0) << "a short read is not yet the end";
    EXPECT_EQ(file.read(room, 0), 0);
    EXPECT_EQ(file.status(), 0) << "nor is a read of nothing";
    EXPECT_EQ(file.read(room, 1), 0);
    EXPECT_EQ(file.status(), kStreamEndOfFile);
    EXPECT_EQ(file.readAt(0, room, 1), 1);
    EXPECT_EQ(file.status(), kStreamEndOfFile) << "sticks";
    EXPECT_EQ(file.write("x", 1), -1);
    EXPECT_EQ(file.status(), kStreamEndOfFile | kStreamFailed);

    EXPECT_TRUE(file.close());
    EXPECT_EQ(file.status(), kStreamNotOpen);
    EXPECT_FALSE(file.flush());
    EXPECT_EQ(file.status(), kStreamNotOpen) << "flush changes no bit";
    EXPECT_TRUE(file.close());
    EXPECT_EQ(file.write("x", 1), -1);
    EXPECT_EQ(file.readAt(0, room, 1), -1);
}

TEST(FileStreamStatus, OfAWriterFailsOnReading) {
    const ScratchDirectory scratch;
    FileStream file(scratch.file("new").c_str(), kOpenWrite);
    char room[1];
    EXPECT_TRUE(file.flush());
    EXPECT_EQ(file.read(room, 1), -1);
    EXPECT_EQ(file.status(), kStreamFailed);
    EXPECT_TRUE(file.open(scratch.file("new").c_str(), kOpenRead));
    EXPECT_EQ(file.status(), 0) << "a good open forgets failures";
}

TEST(FileStreamStatus, TellsOfARefusedWriteAndLeavesFlushAlone) {
    const ScratchDirectory scratch;
    FileStream file(scratch.file("new").c_str(), kOpenWrite);
    {
        const platform::testing::FailingCall noFlush(platform::testing::Call::FlushFile);
        EXPECT_FALSE(file.flush());
        EXPECT_EQ(file.status(), 0);
    }
    const platform::testing::FailingCall noWrite(platform::testing::Call::WriteFile);
    EXPECT_EQ(file.write("x", 1), -1);
    EXPECT_EQ(file.status(), kStreamFailed);
}

TEST(FileStreamOpening, ClosesTheOpenFileEvenWhenItFails) {
    const ScratchDirectory scratch;
    const std::string path = scratch.write("ten", kTenBytes);
    FileStream file(path.c_str(), kOpenRead);
    ASSERT_TRUE(file.isOpen());
    EXPECT_STREQ(file.path().cStr(), path.c_str());
    EXPECT_FALSE(file.open(scratch.file("missing").c_str(), kOpenRead));
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(file.status(), kStreamNotOpen);
    EXPECT_STREQ(file.path().cStr(), path.c_str()) << "path and flags are those of the last good open";
    EXPECT_EQ(file.openFlags(), kOpenRead);
}

TEST(FileStreamPosition, BehindTheEndReadsNothing) {
    const ScratchDirectory scratch;
    FileStream file(scratch.write("ten", kTenBytes).c_str(), kOpenRead);
    char room[1];
    EXPECT_EQ(file.readAt(1000, room, 1), 0);
    EXPECT_EQ(file.status(), kStreamEndOfFile);
}

TEST(FileStreamPosition, FromTwoGibibytesUpIsRefused) {
    const ScratchDirectory scratch;
    FileStream file(scratch.write("ten", kTenBytes).c_str(), kOpenRead);
    char room[1];
    for (const std::uint32_t position : {0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(file.readAt(position, room, 1), -1);
        EXPECT_EQ(file.status(), kStreamFailed);
    }
}

TEST(FileStreamSize, LeavesThePositionWhereItWas) {
    const ScratchDirectory scratch;
    FileStream file(scratch.write("ten", kTenBytes).c_str(), kOpenRead);
    char two[2];
    ASSERT_EQ(file.readAt(4, two, 2), 2);
    EXPECT_EQ(file.size(), 10);
    EXPECT_EQ(file.read(two, 1), 1);
    EXPECT_EQ(two[0], '6');
    EXPECT_EQ(FileStream().size(), -1);
}

}  // namespace
}  // namespace grub
