#include <gtest/gtest.h>

#include "bmp_decoder.h"
#include "bmp_writer.h"
#include "gif_decoder.h"
#include "gif_writer.h"
#include "image_decoder.h"
#include "jpeg_decoder.h"
#include "picture_size.h"

namespace grub {
namespace {

TEST(CreateImageDecoder, ChoosesByTwoBytes) {
    const auto of = [](const Bytes& file) { return createImageDecoder(bufferOf(file)); };
    EXPECT_NE(dynamic_cast<BmpDecoder*>(of({'B', 'M'}).get()), nullptr);
    EXPECT_NE(dynamic_cast<GifDecoder*>(of({'G', 'I', 'X'}).get()), nullptr);
    EXPECT_NE(dynamic_cast<JpegDecoder*>(of({0xFF, 0xD8}).get()), nullptr);
    for (const Bytes& unknown : {Bytes{}, {'B'}, {'G'}, {0xFF}, {'M', 'B'}, {'G', 'i'}, {0xFF, 0xD9}, {0, 0, 0, 0}}) {
        EXPECT_EQ(of(unknown), nullptr) << unknown.size() << " bytes";
    }
    EXPECT_EQ(createImageDecoder({}), nullptr);
}

TEST(ImageDecoder, LeavesTheOutputsAloneWithoutAHeader) {
    for (const Bytes& file : {Bytes{'B', 'M'}, {'G', 'I'}, {0xFF, 0xD8}}) {
        const auto decoder = createImageDecoder(bufferOf(file));
        SharedBuffer rgb = bufferOf(Bytes{1});
        SharedBuffer alpha = bufferOf(Bytes{2});
        EXPECT_FALSE(decoder->isValid());
        EXPECT_FALSE(decoder->decode(rgb, alpha));
        EXPECT_EQ(bytesOf(rgb), Bytes{1});
        EXPECT_EQ(bytesOf(alpha), Bytes{2});
        EXPECT_NE(decoder->fault(), "");
    }
}

TEST(ImageDecoder, CountsThreeBytesAPixelInRows) {
    const auto decoder = createImageDecoder(bufferOf(writeBmp(5, 2, Bytes(30, 0))));
    EXPECT_EQ(decoder->rowBytes(1), 15u);
    EXPECT_EQ(decoder->rowBytes(64), 960u);
}

TEST(ImageDecoder, KeepsTheFileAlive) {
    SharedBuffer file = bufferOf(writeBmp(1, 1, {1, 2, 3}));
    const auto decoder = createImageDecoder(file);
    file.release();
    SharedBuffer rgb;
    SharedBuffer alpha;
    EXPECT_TRUE(decoder->decode(rgb, alpha));
    EXPECT_EQ(bytesOf(rgb), (Bytes{1, 2, 3}));
}

TEST(PictureSize, IsWeighedAgainstTheFile) {
    EXPECT_TRUE(isPlausibleSize(0, 0, 1));
    EXPECT_TRUE(isPlausibleSize(kFreePixels, 0, 1)) << "a cut picture of the usual size shows what it has";
    EXPECT_FALSE(isPlausibleSize(kFreePixels + 1, 20, kGifPixelsPerByte));
    EXPECT_TRUE(isPlausibleSize(kMostPixels, 100000, kGifPixelsPerByte));
    EXPECT_FALSE(isPlausibleSize(kMostPixels + 1, 1u << 31, kGifPixelsPerByte));
    EXPECT_FALSE(isPlausibleSize(std::uint64_t{65535} * 65535, 1u << 31, kJpegPixelsPerByte));
}

TEST(PictureDecodes, NamesTheFault) {
    const Bytes table(12, 7);
    const Bytes gif = writeGif(4, 3, Bytes{1, 1, 1, 2, 2, 3, 0, 1, 1, 1, 2, 2}, table);
    struct Case {
        Bytes file;
        const char* fault;
    };
    const Case kCases[] = {
        {writeBmp(1, 1, {1, 2, 3}), ""},
        {gif, ""},
        {bmpFile(2, 2, 24, Bytes(15)), "BMP: 2 x 2 pixels do not fit into a file of 69 bytes"},
        {bmpFile(2, 2, 8, Bytes(8)),
         "BMP: uncompressed pixels of 16, 24 or 32 bits wanted, 8 bits with compression 0 found"},
        {Bytes(gif.begin(), gif.end() - 4), "GIF: the image data ends before the picture is full"},
        {Bytes{'P', 'K'}, "neither BMP, GIF nor JPEG"},
        {Bytes{}, "neither BMP, GIF nor JPEG"},
    };
    for (const Case& item : kCases) {
        std::string fault = "old";
        const bool decodes = pictureDecodes(item.file, &fault);
        EXPECT_EQ(fault, item.fault);
        EXPECT_EQ(decodes, fault.empty());
    }
}

}  // namespace
}  // namespace grub
