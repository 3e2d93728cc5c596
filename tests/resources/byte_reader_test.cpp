#include "byte_reader.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace grub {
namespace {

constexpr std::array<std::uint8_t, 12> kBytes{0x78, 0x19, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 'a', 'b', 0, 'c', 'd'};

/// A reader of `kBytes` from `start` on.
ByteReader readerFrom(std::size_t start) { return ByteReader(std::span(kBytes).subspan(start)); }

TEST(ByteReader, ReadsLittleEndianNumbersOneAfterTheOther) {
    ByteReader reader(kBytes);
    EXPECT_EQ(reader.u16(), 0x1978);
    EXPECT_EQ(reader.i8(), -1);
    EXPECT_EQ(reader.i32(), -2);
    EXPECT_EQ(reader.cString(), "ab");
    EXPECT_EQ(reader.remaining(), 2u);
    EXPECT_EQ(reader.u8(), 'c');
    EXPECT_TRUE(reader.ok());
}

TEST(ByteReader, ReadsTheSameBytesWithAndWithoutSign) {
    ByteReader low = readerFrom(2);
    EXPECT_EQ(low.u16(), 0xFEFF);
    ByteReader wide = readerFrom(3);
    EXPECT_EQ(wide.u32(), 0xFFFFFFFEu);
    ByteReader small = readerFrom(3);
    EXPECT_EQ(small.i16(), -2);
}

TEST(ByteReader, FailsForGoodPastTheEnd) {
    ByteReader reader(kBytes);
    EXPECT_EQ(reader.take(13).size(), 0u);
    EXPECT_FALSE(reader.ok());
    EXPECT_EQ(reader.u8(), 0);  // there would be a byte, but nobody can know which
    EXPECT_FALSE(reader.ok());
}

TEST(ByteReader, IsNotFooledByAHugeCount) {
    ByteReader reader(kBytes);
    reader.skip(2);
    EXPECT_TRUE(reader.take(std::numeric_limits<std::size_t>::max()).empty());
    EXPECT_FALSE(reader.ok());
}

TEST(ByteReader, WantsTheNulBehindAString) {
    ByteReader reader = readerFrom(10);
    EXPECT_EQ(reader.cString(), "");
    EXPECT_FALSE(reader.ok());
}

}  // namespace
}  // namespace grub
