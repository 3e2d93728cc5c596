#include "file_stream.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "bytes.h"
#include "scratch_directory.h"

namespace grub {
namespace {

const Bytes kTenBytes = bytesOf("0123456789");

/// What an open with some flags does to a missing file and to one of ten bytes. `landing` is where a written byte lands
/// in the latter; kNowhere: writing fails.
struct OpenRule {
    const char* what;
    std::uint32_t flags;
    bool opensMissing;
    bool opensExisting;
    std::uintmax_t sizeAfter;
    int landing;
};
constexpr int kNowhere = -1;

TEST(FileStream, OpensAsItsFlagsSay) {
    for (const OpenRule& rule : {OpenRule{"no flag", 0, false, false, 10, kNowhere},
                                 {"read", kOpenRead, false, true, 10, kNowhere},
                                 {"both", kOpenRead | kOpenWrite, true, true, 10, 0},
                                 {"create for a writer", kOpenWrite | kOpenCreate, true, true, 0, 0},
                                 {"append", kOpenWrite | kOpenAppend, true, true, 10, 10}}) {
        SCOPED_TRACE(rule.what);
        const ScratchDirectory scratch;
        EXPECT_EQ(FileStream(scratch.file("missing").c_str(), rule.flags).isOpen(), rule.opensMissing);
        FileStream existing(scratch.write("ten", kTenBytes).c_str(), rule.flags);
        EXPECT_EQ(existing.isOpen(), rule.opensExisting);
        EXPECT_EQ(scratch.read("ten").size(), rule.sizeAfter);
        existing.write("x", 1);
        const Bytes after = scratch.read("ten");
        const auto landed = std::find(after.begin(), after.end(), 'x');
        EXPECT_EQ(landed != after.end() ? landed - after.begin() : kNowhere, rule.landing);
    }
}

TEST(FileStream, KeepsItsStatusUntilTheNextOpen) {
    const ScratchDirectory scratch;
    const std::string path = scratch.write("ten", kTenBytes);
    char room[16];
    FileStream file;
    EXPECT_EQ(file.read(room, 1), -1);
    EXPECT_EQ(file.status(), kStreamNotOpen | kStreamFailed);

    EXPECT_TRUE(file.open(path.c_str(), kOpenRead));
    EXPECT_EQ(file.readAt(7, room, 10), 3);
    EXPECT_EQ(file.read(room, 0), 0);
    EXPECT_EQ(file.status(), 0) << "neither a short read nor a read of nothing is the end";
    EXPECT_EQ(file.readAt(1000, room, 1), 0);
    EXPECT_EQ(file.readAt(0, room, 1), 1);
    EXPECT_EQ(file.status(), kStreamEndOfFile) << "sticks";
    EXPECT_EQ(file.readAt(0x80000000U, room, 1), -1) << "positions end at two gibibytes";
    EXPECT_EQ(file.status(), kStreamEndOfFile | kStreamFailed);

    EXPECT_FALSE(file.open(scratch.file("missing").c_str(), kOpenRead));
    EXPECT_EQ(file.status(), kStreamNotOpen);
    EXPECT_STREQ(file.path().cStr(), path.c_str()) << "of the last open that succeeded";
}

}  // namespace
}  // namespace grub
