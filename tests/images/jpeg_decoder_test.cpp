#include <gtest/gtest.h>
#include <unistd.h>

#include <thread>

#include "decoded.h"
#include "jpeg_writer.h"
#include "plain_jpeg.h"

namespace grub {
namespace {

// Ends the test program when a decoder hangs.
class TimeLimit {
public:
    explicit TimeLimit(unsigned seconds) { alarm(seconds); }
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;
    ~TimeLimit() { alarm(0); }
};

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

// A file whose header is read and whose decoding libjpeg calls fatal: its quantization table has another number.
Bytes fatalJpeg() {
    Bytes file = goodJpeg();
    file.at(segment(file, 0xDB) + 4) = 3;
    return file;
}

TEST(JpegDecoder, GivesWhatLibjpegGives) {
    for (const bool progressive : {false, true}) {
        const Bytes file = goodJpeg(progressive);
        const auto result = decoded(file);
        EXPECT_TRUE(result.done);
        EXPECT_EQ(result.width, 40u);
        EXPECT_EQ(result.height, 30u);
        EXPECT_EQ(result.rgb, readJpegPlainly(file));
        EXPECT_EQ(result.alpha, Bytes{});
    }
}

TEST(JpegDecoder, ReadsFilesLargerThanTheStagingBuffer) {
    const Bytes file = writeJpeg(500, 400, noise(std::size_t{500} * 400 * 3, 256, 1), {.quality = 100});
    ASSERT_GT(file.size(), 2u * 131072);
    EXPECT_TRUE(decoded(file).rgb == readJpegPlainly(file));
}

TEST(JpegDecoder, MakesGreyPicturesRgbAndRefusesFourComponents) {
    const auto grey = decoded(writeJpeg(9, 7, slopes(9, 7, 1), {.colours = JCS_GRAYSCALE}));
    ASSERT_TRUE(grey.done);
    ASSERT_EQ(grey.rgb.size(), 9u * 7 * 3);
    for (std::size_t i = 0; i < grey.rgb.size(); i += 3) {
        ASSERT_TRUE(grey.rgb[i] == grey.rgb[i + 1] && grey.rgb[i] == grey.rgb[i + 2]) << i;
    }
    const auto cmyk = decoded(writeJpeg(9, 7, slopes(9, 7, 4), {.colours = JCS_CMYK}));
    EXPECT_FALSE(cmyk.valid);
    EXPECT_FALSE(cmyk.done);
    EXPECT_EQ(cmyk.rgb, kOld);
}

TEST(JpegDecoder, RefusesEveryCutFileInTime) {
    const TimeLimit limit(60);
    for (const bool progressive : {false, true}) {
        const Bytes good = goodJpeg(progressive);
        const std::size_t scan = segment(good, 0xDA);
        for (std::size_t size = 2; size + 2 < good.size(); ++size) {
            SCOPED_TRACE(size);
            const auto result = decoded(Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size)));
            ASSERT_TRUE(size > scan || !result.valid) << "the header is not complete";
            ASSERT_TRUE(size + 64 > good.size() || !result.done);  // the last bytes of a scan may be padding
            ASSERT_TRUE(result.done || result.rgb == kOld);
        }
    }
}

TEST(JpegDecoder, SurvivesASegmentThatReachesBeyondTheFile) {
    const TimeLimit limit(60);
    Bytes file = goodJpeg();
    file[4] = 0xFF;  // length of the first segment
    EXPECT_FALSE(decoded(file).valid);
}

TEST(JpegDecoder, TakesAFatalErrorInTheHeaderForNoHeader) {
    Bytes file = goodJpeg();
    file.at(segment(file, 0xC0) + 4) = 7;  // bits a sample
    const auto result = decoded(file);
    EXPECT_FALSE(result.valid);
    EXPECT_EQ(result.fault, "JPEG: Unsupported JPEG data precision 7");
    EXPECT_EQ(result.width, 0u);
}

TEST(JpegDecoder, ChecksTheClaimedSizeAgainstTheFile) {
    Bytes file = goodJpeg();
    const std::size_t frame = segment(file, 0xC0);
    std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(frame) + 5, 4, std::uint8_t{0xF0});  // 61680 x 61680
    EXPECT_FALSE(decoded(file).valid);
}

TEST(JpegDecoderDeathTest, EndsTheProcessWithLibjpegsMessageOnAFatalError) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    ASSERT_TRUE(createImageDecoder(bufferOf(fatalJpeg()))->isValid());
    EXPECT_EXIT(static_cast<void>(decoded(fatalJpeg())), testing::ExitedWithCode(1),
                "^Quantization table 0x00 was not defined\n$");
}

TEST(JpegDecoder, GivesUpOnFilesOfManyScans) {
    const TimeLimit limit(60);
    const Bytes good = goodJpeg(true);
    const Bytes marker{0xFF, 0xDA};
    const auto lastScan = std::find_end(good.begin(), good.end(), marker.begin(), marker.end());
    Bytes file(good.begin(), lastScan);
    for (int i = 0; i < 200; ++i) file.insert(file.end(), lastScan, good.end() - 2);
    file.insert(file.end(), good.end() - 2, good.end());
    const auto result = decoded(file);
    EXPECT_FALSE(result.done);
    EXPECT_EQ(result.fault, "JPEG: more than 100 scans");
}

TEST(JpegDecoder, LetsThreadsTakeTurns) {
    const Bytes first = goodJpeg();
    const Bytes second = writeJpeg(64, 64, noise(std::size_t{64} * 64 * 3, 256, 2));
    const auto decodeOften = [](const Bytes& file) {
        const Bytes expected = readJpegPlainly(file);
        for (int i = 0; i < 50; ++i) EXPECT_TRUE(decoded(file).rgb == expected);
    };
    std::thread other(decodeOften, std::cref(second));
    decodeOften(first);
    other.join();
}

TEST(PictureDecodes, NeverEndsTheProcess) {
    const TimeLimit limit(120);
    std::string fault;
    EXPECT_FALSE(pictureDecodes(fatalJpeg(), &fault));
    EXPECT_EQ(fault, "JPEG: Quantization table 0x00 was not defined");
    const Bytes good = goodJpeg();
    int refused = 0;
    for (std::size_t at = 0; at < 700; ++at) {
        Bytes file = good;
        file.at(at) ^= 0xFF;
        refused += pictureDecodes(file, nullptr) ? 0 : 1;
    }
    EXPECT_GT(refused, 100);
    EXPECT_TRUE(pictureDecodes(good, &fault));
    EXPECT_EQ(fault, "");
}

}  // namespace
}  // namespace grub
