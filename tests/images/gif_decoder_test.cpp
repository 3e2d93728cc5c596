#include <gtest/gtest.h>

#include "decoded.h"
#include "gif_writer.h"

namespace grub {
namespace {

const Bytes kFourColours{0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255};
const Bytes kOtherColours{9, 9, 9, 8, 8, 8, 7, 7, 7, 6, 6, 6};
const Bytes kIndices{1, 1, 1, 2, 2, 3, 0, 1, 1, 1, 2, 2};  // 4 x 3

GifParts goodParts() {
    return {.width = 4, .height = 3, .minCodeSize = 2, .data = lzwOf(kIndices, 2, true), .globalTable = kFourColours};
}

Bytes table(unsigned colours) {
    Bytes grey;
    for (unsigned i = 0; i < colours; ++i) grey.insert(grey.end(), 3, static_cast<std::uint8_t>(i));
    return grey;
}

Bytes packedCodes(unsigned minCodeSize, std::initializer_list<unsigned> codes) {
    GifCodePacker packer(minCodeSize);
    for (const unsigned code : codes) packer.put(code);
    return packer.packed();
}

TEST(GifDecoder, DecodesTheColoursOfTheGlobalTable) {
    const auto result = decoded(gifFile(goodParts()));
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.width, 4u);
    EXPECT_EQ(result.height, 3u);
    EXPECT_EQ(result.rgb, coloured(kIndices, kFourColours));
    EXPECT_EQ(result.alpha, Bytes{});
    EXPECT_EQ(result.fault, "");
}

TEST(GifDecoder, LooksAtNoExtension) {
    auto parts = goodParts();
    parts.extensions = {0x21, 0xF9, 4, 1,   0,   0, 1,   0,  // graphic control: index 1 is transparent
                        0x21, 0xFE, 2, 'h', 'i', 1, '!', 0,  // comment in two sub-blocks
                        0x21, 0xFF, 0};                      // without any
    const auto result = decoded(gifFile(parts));
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.rgb, coloured(kIndices, kFourColours));
    EXPECT_EQ(result.alpha, Bytes{});
}

TEST(GifDecoder, PrefersTheLocalTable) {
    auto parts = goodParts();
    parts.localTable = kOtherColours;
    EXPECT_EQ(decoded(gifFile(parts)).rgb, coloured(kIndices, kOtherColours));
    parts.globalTable = {};
    EXPECT_EQ(decoded(gifFile(parts)).rgb, coloured(kIndices, kOtherColours));
}

TEST(GifDecoder, WritesPixelsInStoredOrderWhateverTheImagesPlace) {
    auto parts = goodParts();
    parts.interlaced = true;
    EXPECT_EQ(decoded(gifFile(parts)).rgb, coloured(kIndices, kFourColours)) << "rows as they are stored";
    parts.width = 5;  // the image of 4 x 3 in a screen of 5 x 4 fills two rows and a bit
    parts.height = 4;
    parts.imageWidth = 4;
    parts.imageHeight = 3;
    const auto result = decoded(gifFile(parts));
    EXPECT_TRUE(result.done);
    Bytes expected = coloured(kIndices, kFourColours);
    expected.resize(60, 0);
    EXPECT_EQ(result.rgb, expected) << "then black";
}

TEST(GifDecoder, StopsWhereThePictureIsFull) {
    auto parts = goodParts();
    parts.height = 2;
    EXPECT_EQ(decoded(gifFile(parts)).rgb, coloured(Bytes(kIndices.begin(), kIndices.begin() + 8), kFourColours));
}

TEST(GifDecoder, SeesNoSubBlockBoundaries) {
    for (const unsigned size : {1u, 2u, 3u, 7u}) {
        auto parts = goodParts();
        parts.blockSize = size;
        EXPECT_EQ(decoded(gifFile(parts)).rgb, coloured(kIndices, kFourColours)) << size;
    }
}

struct CodeCase {
    const char* rule;
    unsigned minCodeSize;
    unsigned colours;
    std::initializer_list<unsigned> codes;
    Bytes pixels;
};

const CodeCase kCodeCases[] = {
    {"a code below the colour count is a colour, even where a string has its number",
     4,
     256,
     {16, 1, 2, 18, 19, 17},
     {1, 2, 18, 19}},
    {"a code from the colour count up to the clear code is a string of two first colours",
     8,
     2,
     {256, 1, 5, 0, 257},
     {1, 0, 0, 0}},
    {"the code after a clear code counts modulo the colour count", 8, 4, {256, 7, 0, 257}, {3, 0}},
    {"a second clear code clears again", 2, 4, {4, 4, 4, 2, 1, 5}, {2, 1}},
    {"an end code after a clear code ends", 2, 4, {4, 3, 1, 4, 5, 2}, {3, 1}},
    {"without a clear code the first code is taken as after one", 2, 4, {2, 1, 6, 5}, {2, 1, 2, 1}},
    {"a code just being made repeats the string before and its first colour",
     2,
     4,
     {4, 1, 6, 7, 5},
     {1, 1, 1, 1, 1, 1}},
    {"so does a larger one", 2, 4, {4, 1, 7, 5}, {1, 1, 1}},
    {"strings are forgotten by a clear code", 2, 4, {4, 1, 2, 6, 4, 3, 6, 5}, {1, 2, 1, 2, 3, 3, 3}},
};

TEST(GifDecoder, KeepsToTheRulesOfItsCodes) {
    for (const CodeCase& item : kCodeCases) {
        SCOPED_TRACE(item.rule);
        const auto count = static_cast<unsigned>(item.pixels.size());
        const auto result = decoded(gifFile({.width = count + 1,  // room for one pixel too many
                                             .height = 1,
                                             .minCodeSize = item.minCodeSize,
                                             .data = packedCodes(item.minCodeSize, item.codes),
                                             .globalTable = table(item.colours)}));
        Bytes expected = coloured(item.pixels, table(item.colours));
        expected.resize(expected.size() + 3, 0);
        EXPECT_TRUE(result.done);
        EXPECT_EQ(result.fault, "");
        EXPECT_EQ(result.rgb, expected);
    }
}

TEST(GifDecoder, KeepsAFullTableUntilAClearCode) {
    const Bytes indices = noise(std::size_t{256} * 256, 256, 1);
    for (const bool clearWhenFull : {true, false}) {
        const auto result = decoded(gifFile({.width = 256,
                                             .height = 256,
                                             .minCodeSize = 8,
                                             .data = lzwOf(indices, 8, clearWhenFull),
                                             .globalTable = table(256)}));
        EXPECT_TRUE(result.done && result.fault.empty());
        EXPECT_TRUE(result.rgb == coloured(indices, table(256)));
    }
}

struct GifFault {
    const char* what;
    void (*damage)(GifParts&);
};

const GifFault kGifFaults[] = {
    {"no colour table", [](GifParts& p) { p.globalTable = {}; }},
    {"codes of no bits", [](GifParts& p) { p.minCodeSize = 0; }},
    {"codes of 12 bits", [](GifParts& p) { p.minCodeSize = 12; }},
    {"codes of 255 bits", [](GifParts& p) { p.minCodeSize = 255; }},
    {"a trailer instead of an image", [](GifParts& p) { p.extensions = {0x3B}; }},
    {"an extension that swallows the image",
     [](GifParts& p) {
         p.extensions = {0x21, 0xFE, 200};
     }},
    {"more pixels than the file can hold", [](GifParts& p) { p.width = p.height = 65535; }},
    {"a picture above the limit, in one dimension", [](GifParts& p) { p.width = 65535, p.height = 2000; }},
};

TEST(GifDecoder, RefusesWhatItCannotRead) {
    ASSERT_TRUE(decoded(gifFile(goodParts())).done);
    for (const GifFault& fault : kGifFaults) {
        SCOPED_TRACE(fault.what);
        auto parts = goodParts();
        fault.damage(parts);
        const auto result = decoded(gifFile(parts));
        EXPECT_FALSE(result.done);
        EXPECT_NE(result.fault, "");
        EXPECT_EQ(result.rgb, kOld);
        EXPECT_EQ(result.alpha, kOld);
    }
    for (const char* signature : {"GIF88a", "GIX89a", "GIF89b"}) {
        Bytes file = gifFile(goodParts());
        std::copy_n(signature, 6, file.begin());
        EXPECT_FALSE(decoded(file).valid) << signature;
        EXPECT_FALSE(decoded(file).done) << signature;
    }
}

TEST(GifDecoder, MakesTheBestOfCutImageData) {
    const Bytes good = gifFile(goodParts());
    const Bytes pixels = coloured(kIndices, kFourColours);
    const std::size_t dataStart = 13 + kFourColours.size() + 11;
    for (std::size_t size = 2; size < good.size(); ++size) {
        SCOPED_TRACE(size);
        const auto result = decoded(Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size)));
        ASSERT_EQ(result.done, size >= dataStart);
        if (!result.done) continue;
        const auto differs = std::mismatch(result.rgb.begin(), result.rgb.end(), pixels.begin()).first;
        EXPECT_EQ(std::count(differs, result.rgb.end(), 0), result.rgb.end() - differs) << "a head, then black";
        EXPECT_EQ(result.fault.empty(), result.rgb == pixels);
    }
}

}  // namespace
}  // namespace grub
