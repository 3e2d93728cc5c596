#include "image_decoder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

#include "bmp_writer.h"
#include "decoded.h"
#include "gif_writer.h"

namespace grub {
namespace {

TEST(CreateImageDecoder, ChoosesByTwoBytes) {
    for (const auto& [file, format] :
         {std::pair{Bytes{'B', 'M'}, "BMP: "}, {Bytes{'G', 'I', 'X'}, "GIF: "}, {Bytes{0xFF, 0xD8}, "JPEG: "}}) {
        const auto result = decoded(file);
        EXPECT_FALSE(result.valid);
        EXPECT_TRUE(result.refused()) << "without a header both outputs stay";
        EXPECT_TRUE(result.fault.starts_with(format)) << result.fault;
    }
    for (const Bytes& unknown : {Bytes{}, {'B'}, {0xFF}, {'M', 'B'}, {'G', 'i'}, {0xFF, 0xD9}, {0, 0, 0, 0}}) {
        EXPECT_EQ(createImageDecoder(bufferOf(unknown)), nullptr) << unknown.size() << " bytes";
    }
}

TEST(PictureDecodes, NamesTheFault) {
    const Bytes gif = writeGif(4, 3, Bytes{1, 1, 1, 2, 2, 3, 0, 1, 1, 1, 2, 2}, Bytes(12, 7));
    for (const auto& [file, wanted] :
         {std::pair{gif, ""},
          {bmpFile(2, 2, 24, Bytes(15)), "BMP: 2 x 2 pixels do not fit into a file of 69 bytes"},
          {cut(gif, gif.size() - 4), "GIF: the image data ends before the picture is full"},
          {Bytes{'P', 'K'}, "neither BMP, GIF nor JPEG"}}) {
        std::string fault = "old";
        EXPECT_EQ(pictureDecodes(file, &fault), *wanted == '\0') << wanted;
        EXPECT_EQ(fault, wanted);
    }
}

Bytes fromHex(const std::string& text) {
    std::istringstream words(text);
    Bytes bytes;
    for (unsigned byte = 0; words >> std::hex >> byte;) bytes.push_back(static_cast<std::uint8_t>(byte));
    return bytes;
}

// The smallest files, as docs/formats/pictures.md prints them.
TEST(PictureFormat, TheSmallestFilesDecode) {
    EXPECT_EQ(decoded(fromHex("42 4D 3A 0 0 0 0 0 0 0 36 0 0 0 28 0 0 0 1 0 0 0 1 0 0 0 1 0 18 0 0 0 0 0 0 0 0 0 0 0 "
                              "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 FF 0"))
                  .rgb,
              (Bytes{255, 0, 0}));
    EXPECT_EQ(decoded(fromHex("47 49 46 38 39 61 1 0 1 0 80 0 0 0 0 0 FF 0 0 2C 0 0 0 0 1 0 1 0 0 2 2 4C 1 0 3B")).rgb,
              (Bytes{255, 0, 0}));
    // One grey component of one block. Its only coefficient has difference category 11, so 1024 above mid-grey.
    std::string jpeg = "FF D8 FF DB 0 43 0 ";
    for (int i = 0; i < 64; ++i) jpeg += "1 ";
    jpeg +=
        "FF C4 0 14 0  1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 B FF C4 0 14 10 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 "
        "FF C0 0 B 8 0 1 0 1 1 1 11 0 FF DA 0 8 1 1 0 0 3F 0 40 7 FF D9";
    EXPECT_EQ(decoded(fromHex(jpeg)).rgb, (Bytes{255, 255, 255}));
}

}  // namespace
}  // namespace grub
