#include <gtest/gtest.h>

#include "bmp_writer.h"
#include "decoded.h"

namespace grub {
namespace {

// 3 x 2 pixels, so that rows of 9 bytes need 3 bytes of padding.
const Bytes kRgb{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
const Bytes kAlpha{0, 51, 102, 153, 204, 255};

// Stored rows of three words and one word of padding; the lower row comes first.
const Bytes kRows16{0x00, 0x7C, 0xE0, 0x03, 0x1F, 0x00, 0xEE, 0xEE,   // red, green, blue
                    0xFF, 0x7F, 0x00, 0x00, 0x21, 0x84, 0xEE, 0xEE};  // white, black, the lowest and the unused bits
const Bytes kRgb16{248, 248, 248, 0, 0, 0, 8, 8, 8, 248, 0, 0, 0, 248, 0, 0, 0, 248};

constexpr std::size_t kWide = 16385;  // pixels; 65540 bytes a row of 32 bits, which a stride of 16 bits cannot say
const Bytes kWideRgb = noise(kWide * 2 * 3, 256, 1);

const struct {
    const char* what;
    Bytes file;
    std::size_t width;
    Bytes rgb;
    Bytes alpha;
} kGoodFiles[] = {
    {"24 bits", writeBmp(3, 2, kRgb), 3, kRgb, {}},
    {"32 bits: the fourth byte is alpha", writeBmp(3, 2, kRgb, kAlpha), 3, kRgb, kAlpha},
    {"16 bits: five bits go to the top of a byte", bmpFile(3, 2, 16, kRows16), 3, kRgb16, {}},
    {"rows of 32 bits longer than a stride", writeBmp(unsigned{kWide}, 2, kWideRgb, Bytes(kWide * 2, 9)), kWide,
     kWideRgb, Bytes(kWide * 2, 9)},
};

TEST(BmpDecoder, ReadsThreeDepths) {
    for (const auto& row : kGoodFiles) {
        SCOPED_TRACE(row.what);
        const auto result = decoded(row.file);
        EXPECT_TRUE(result.done);
        EXPECT_EQ(result.width, row.width);
        EXPECT_EQ(result.height, 2u);
        EXPECT_TRUE(result.rgb == row.rgb);
        EXPECT_TRUE(result.alpha == row.alpha) << "without alpha the output is released";
    }
}

const struct {
    const char* what;
    void (*damage)(Bytes&);
    bool decodes;
} kFaults[] = {
    {"15 bits", [](Bytes& b) { b[kBmpBitCount] = 15; }, false},
    {"bit fields", [](Bytes& b) { b[kBmpCompression] = 3; }, false},
    {"top-down, which counts as 65534 rows", [](Bytes& b) { put(b, kBmpHeight, 0xFFFFFFFE, 4); }, false},
    {"wider than the file", [](Bytes& b) { put(b, kBmpWidth, 5, 4); }, false},
    {"a stride that does not fit into 16 bits", [](Bytes& b) { put(b, kBmpWidth, 21846, 4); }, false},
    {"pixels one byte too late", [](Bytes& b) { put(b, kBmpPixelOffset, 55, 4); }, false},
    {"an offset whose low 16 bits are right", [](Bytes& b) { put(b, kBmpPixelOffset, 65536 + 54, 4); }, true},
    {"a width whose low 16 bits are right", [](Bytes& b) { put(b, kBmpWidth, 0x70003, 4); }, true},
    {"no rows", [](Bytes& b) { put(b, kBmpHeight, 0, 4); }, true},
};

TEST(BmpDecoder, RefusesWhatItCannotRead) {
    for (const auto& row : kFaults) {
        SCOPED_TRACE(row.what);
        Bytes file = writeBmp(3, 2, kRgb);
        row.damage(file);
        const auto result = decoded(file);
        EXPECT_EQ(result.refused(), !row.decodes);
        EXPECT_EQ(result.done, row.decodes);
    }
    const auto deep = decoded(bmpFile(4, 2, 40, Bytes(64)));
    EXPECT_FALSE(deep.done);
    EXPECT_TRUE(deep.rgb.empty() && deep.alpha.empty()) << "40 bits a pixel release the outputs";
}

TEST(BmpDecoder, RefusesEveryCutFile) {
    const Bytes& file = kGoodFiles[0].file;
    for (std::size_t size = 2; size < file.size(); ++size) {
        ASSERT_TRUE(decoded(cut(file, size)).refused()) << size << " bytes";
    }
}

}  // namespace
}  // namespace grub
