#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>

#include "bmp_writer.h"
#include "decoded.h"
#include "package_writer.h"

namespace grub {
namespace {

// 3 x 2 pixels, so that rows of 9 bytes need 3 bytes of padding.
const Bytes kRgb{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
const Bytes kAlpha{0, 51, 102, 153, 204, 255};

TEST(BmpDecoder, FlipsRowsSwapsBytesAndSkipsPadding) {
    const auto result = decoded(writeBmp(3, 2, kRgb));
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.width, 3u);
    EXPECT_EQ(result.height, 2u);
    EXPECT_EQ(result.rgb, kRgb);
    EXPECT_EQ(result.alpha, Bytes{}) << "the alpha output is released";
}

TEST(BmpDecoder, TakesTheFourthByteAsAlpha) {
    const auto result = decoded(writeBmp(3, 2, kRgb, kAlpha));
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.rgb, kRgb);
    EXPECT_EQ(result.alpha, kAlpha);
}

TEST(BmpDecoder, WidensFiveBitsToTheTopOfAByte) {
    // Stored rows of three words and one word of padding; the lower row comes first.
    const Bytes rows{0x00, 0x7C, 0xE0, 0x03, 0x1F, 0x00, 0xEE, 0xEE,   // red, green, blue
                     0xFF, 0x7F, 0x00, 0x00, 0x21, 0x84, 0xEE, 0xEE};  // white, black, the lowest bits and the unused
    const auto result = decoded(bmpFile(3, 2, 16, rows));
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.rgb, (Bytes{248, 248, 248, 0, 0, 0, 8, 8, 8,  //
                                 248, 0, 0, 0, 248, 0, 0, 0, 248}));
    EXPECT_EQ(result.alpha, Bytes{});
}

TEST(BmpDecoder, KnowsThreeDepths) {
    struct Depth {
        unsigned bits;
        bool valid;
        unsigned decodedAs;  // bits, 0: refused
        bool outputsReleased;
    };
    constexpr Depth kDepths[] = {
        {1, false, 0, false},  {8, false, 0, false},  {15, false, 0, false}, {16, true, 16, false},
        {23, true, 16, false}, {24, true, 24, false}, {31, true, 24, false}, {32, true, 32, false},
        {39, true, 32, false}, {40, true, 0, true},   {48, true, 0, true},   {65535, true, 0, true},
    };
    const Bytes rows(64, 0x11);  // enough for 4 x 2 pixels of any depth up to 64 bits
    for (const Depth& depth : kDepths) {
        SCOPED_TRACE(depth.bits);
        const auto result = decoded(bmpFile(4, 2, depth.bits, rows));
        EXPECT_EQ(result.valid, depth.valid);
        EXPECT_EQ(result.done, depth.decodedAs != 0);
        const Bytes untouched = depth.outputsReleased ? Bytes{} : kOld;
        if (depth.decodedAs == 16) {
            EXPECT_EQ(std::vector(result.rgb.begin(), result.rgb.begin() + 3), (Bytes{0x20, 0x40, 0x88}));
        } else {
            EXPECT_EQ(result.rgb, depth.decodedAs != 0 ? Bytes(24, 0x11) : untouched);
        }
        EXPECT_EQ(result.alpha, depth.decodedAs == 32 ? Bytes(8, 0x11) : depth.decodedAs != 0 ? Bytes{} : untouched);
    }
}

struct BmpFault {
    const char* what;
    void (*damage)(Bytes&);
    bool decodes;
};

const BmpFault kBmpFaults[] = {
    {"bit fields", [](Bytes& b) { b[kBmpCompression] = 3; }, false},
    {"compression in the highest byte", [](Bytes& b) { b[kBmpCompression + 3] = 1; }, false},
    {"top-down, which counts as 65534 rows", [](Bytes& b) { put(b, kBmpHeight, 0xFFFFFFFE, 4); }, false},
    {"wider than the file", [](Bytes& b) { put(b, kBmpWidth, 5, 4); }, false},
    {"a stride that does not fit into 16 bits", [](Bytes& b) { put(b, kBmpWidth, 21846, 4); }, false},
    {"pixels one byte too late", [](Bytes& b) { put(b, kBmpPixelOffset, 55, 4); }, false},
    {"pixels beyond the file", [](Bytes& b) { put(b, kBmpPixelOffset, 0xFFFF, 4); }, false},
    {"an offset whose low 16 bits are right", [](Bytes& b) { put(b, kBmpPixelOffset, 65536 + 54, 4); }, true},
    {"a width whose low 16 bits are right", [](Bytes& b) { put(b, kBmpWidth, 0x70003, 4); }, true},
    {"a file size that lies", [](Bytes& b) { put(b, 2, 0xFFFFFFFF, 4); }, true},
    {"no pixels", [](Bytes& b) { put(b, kBmpWidth, 0, 4); }, true},
    {"no rows", [](Bytes& b) { put(b, kBmpHeight, 0, 4); }, true},
};

TEST(BmpDecoder, RefusesWhatItCannotRead) {
    const Bytes good = writeBmp(3, 2, kRgb);
    ASSERT_TRUE(decoded(good).done);
    for (const BmpFault& fault : kBmpFaults) {
        SCOPED_TRACE(fault.what);
        Bytes file = good;
        fault.damage(file);
        const auto result = decoded(file);
        EXPECT_EQ(result.done, fault.decodes);
        EXPECT_EQ(result.fault.empty(), fault.decodes) << result.fault;
        EXPECT_EQ(result.rgb == kOld, !fault.decodes);
    }
}

TEST(BmpDecoder, RefusesEveryCutFile) {
    for (const Bytes& good : {writeBmp(3, 2, kRgb), writeBmp(3, 2, kRgb, kAlpha), bmpFile(3, 2, 16, Bytes(16, 7))}) {
        for (std::size_t size = 2; size < good.size(); ++size) {
            const auto result = decoded(Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size)));
            ASSERT_FALSE(result.done) << size << " of " << good.size() << " bytes";
            ASSERT_EQ(result.rgb, kOld);
        }
        ASSERT_TRUE(decoded(good).done);
    }
}

TEST(BmpDecoder, RefusesPixelsWhoseBytesCannotBeCounted) {
    // 2 bytes a pixel fit into a file of 32 bits, 3 bytes a pixel would wrap around. Untouched pages cost no memory.
    const std::uint32_t width = 32000;
    const std::uint32_t height = 65000;
    const std::size_t size = kBmpHeaders + std::size_t{width} * height * 2;
    void* const pages = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    const Bytes header = bmpFile(width, height, 16, {});
    auto* const bytes = static_cast<std::uint8_t*>(pages);
    std::copy(header.begin(), header.end(), bytes);
    SharedBuffer rgb = bufferOf(kOld);
    SharedBuffer alpha;
    const auto decoder = createImageDecoder(SharedBuffer::view(bytes, static_cast<std::uint32_t>(size)));
    EXPECT_FALSE(decoder->decode(rgb, alpha));
    EXPECT_EQ(decoder->fault(), "no memory for the pixels");
    EXPECT_EQ(bytesOf(rgb), kOld);
    munmap(pages, size);
}

TEST(BmpDecoder, ReadsRowsOf32BitsThatAreLongerThanAStride) {
    const std::size_t width = 16385;  // 65540 bytes a row
    const Bytes rgb = noise(width * 2 * 3, 256, 1);
    const auto result = decoded(writeBmp(static_cast<unsigned>(width), 2, rgb, Bytes(width * 2, 9)));
    EXPECT_TRUE(result.done);
    EXPECT_TRUE(result.rgb == rgb);
}

}  // namespace
}  // namespace grub
