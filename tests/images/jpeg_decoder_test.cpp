#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <utility>

#include "decoded.h"
#include "jpeg_writer.h"

namespace grub {
namespace {

Bytes slopes(unsigned width, unsigned height, unsigned channels) {
    Bytes samples;
    for (unsigned y = 0; y < height; ++y) {
        for (unsigned x = 0; x < width * channels; ++x) samples.push_back(static_cast<std::uint8_t>(x * 3 + y * 5));
    }
    return samples;
}

Bytes goodJpeg(bool progressive = false) { return writeJpeg(40, 30, slopes(40, 30, 3), {.progressive = progressive}); }

// Where the segment with this marker starts (its FF byte).
std::size_t segment(const Bytes& file, std::uint8_t marker) {
    const Bytes wanted{0xFF, marker};
    return static_cast<std::size_t>(std::search(file.begin(), file.end(), wanted.begin(), wanted.end()) - file.begin());
}

// Segments of no interest that libjpeg skips; the third one reaches beyond the first 128 KiB.
Bytes withLongComments(const Bytes& good) {
    Bytes file = cut(good, 2);
    for (int i = 0; i < 3; ++i) {
        file.insert(file.end(), {0xFF, 0xEF, 0xFF, 0xFF});
        file.insert(file.end(), 0xFFFF - 2, 0xFF);
    }
    file.insert(file.end(), good.begin() + 2, good.end());
    return file;
}

TEST(JpegDecoder, GivesWhatLibjpegGives) {
    const Bytes large = writeJpeg(500, 400, noise(std::size_t{500} * 400 * 3, 256, 1), {.quality = 100});
    for (const auto& [what, file] : {std::pair{"baseline", goodJpeg()},
                                     {"progressive", goodJpeg(true)},
                                     {"larger than the staging buffer", large},
                                     {"a skip across the end of the staging buffer", withLongComments(goodJpeg())}}) {
        SCOPED_TRACE(what);
        const auto result = decoded(file);
        EXPECT_TRUE(result.done);
        EXPECT_TRUE(result.rgb == readJpegPlainly(file));
        EXPECT_EQ(result.alpha, Bytes{});
    }
}

TEST(JpegDecoder, MakesGreyPicturesRgb) {
    const auto grey = decoded(writeJpeg(9, 7, slopes(9, 7, 1), {.colours = JCS_GRAYSCALE}));
    ASSERT_EQ(grey.rgb.size(), 9u * 7 * 3);
    for (std::size_t i = 0; i < grey.rgb.size(); i += 3) {
        ASSERT_TRUE(grey.rgb[i] == grey.rgb[i + 1] && grey.rgb[i] == grey.rgb[i + 2]) << i;
    }
}

// The last scan of a progressive picture, 200 times more.
Bytes manyScans() {
    Bytes file = goodJpeg(true);
    const Bytes marker{0xFF, 0xDA};
    const Bytes lastScan(std::find_end(file.begin(), file.end(), marker.begin(), marker.end()), file.end() - 2);
    for (int i = 0; i < 200; ++i) file.insert(file.end() - 2, lastScan.begin(), lastScan.end());
    return file;
}

Bytes damaged(std::uint8_t marker, std::size_t offset, std::size_t count, std::uint8_t value) {
    Bytes file = goodJpeg();
    std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(segment(file, marker) + offset), count, value);
    return file;
}

TEST(JpegDecoder, RefusesWhatItCannotRead) {
    const struct {
        Bytes file;
        bool valid;
        const char* fault;
    } kFaults[] = {
        {damaged(0xC0, 4, 1, 7), false, "JPEG: Unsupported JPEG data precision 7"},
        {damaged(0xC0, 5, 4, 0xF0), false, "JPEG: the file is too short for so many pixels"},  // 61680 x 61680
        {damaged(0xE0, 2, 1, 0xFF), false, "JPEG: the file ends inside the header"},           // length of a segment
        {writeJpeg(9, 7, slopes(9, 7, 4), {.colours = JCS_CMYK}), false, "JPEG: 1 or 3 colour components wanted"},
        {cut(goodJpeg(), segment(goodJpeg(), 0xDA)), false, "JPEG: the file ends inside the header"},
        {cut(goodJpeg(), goodJpeg().size() - 70), true, "JPEG: the file ends before the last row"},
        {manyScans(), true, "JPEG: more than 100 scans"},
    };
    for (const auto& row : kFaults) {
        SCOPED_TRACE(row.fault);
        const auto result = decoded(row.file);
        EXPECT_EQ(result.valid, row.valid);
        EXPECT_TRUE(result.refused());
        EXPECT_EQ(result.fault, row.fault);
    }
}

TEST(JpegDecoderDeathTest, EndsTheProcessWithLibjpegsMessageOnAFatalError) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    // libjpeg reads the header of this file and calls its decoding fatal: the quantization table has another number.
    const Bytes fatal = damaged(0xDB, 4, 1, 3);
    std::string fault;
    EXPECT_FALSE(pictureDecodes(fatal, &fault)) << "which the question of tools never does";
    EXPECT_EQ(fault, "JPEG: Quantization table 0x00 was not defined");
    EXPECT_EXIT(static_cast<void>(decoded(fatal)), testing::ExitedWithCode(1),
                "^Quantization table 0x00 was not defined\n$");
}

// Each decoding takes some milliseconds, so the threads meet inside libjpeg.
TEST(JpegDecoder, LetsThreadsTakeTurns) {
    const auto decodeOften = [](unsigned seed) {
        const Bytes file = writeJpeg(300, 300, noise(std::size_t{300} * 300 * 3, 256, seed));
        const Bytes expected = readJpegPlainly(file);
        for (int i = 0; i < 30; ++i) EXPECT_TRUE(decoded(file).rgb == expected);
    };
    const std::jthread other(decodeOften, 1u);
    decodeOften(2);
}

}  // namespace
}  // namespace grub
