#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "decoded.h"
#include "gif_lzw.h"
#include "gif_writer.h"
#include "plain_lzw.h"

namespace grub {
namespace {

const Bytes kFourColours{0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255};
const Bytes kOtherColours{9, 9, 9, 8, 8, 8, 7, 7, 7, 6, 6, 6};
const Bytes kOtherColoursAndBlack{9, 9, 9, 8, 8, 8, 7, 7, 7, 6, 6, 6, 0, 0, 0};
const Bytes kIndices{1, 1, 1, 2, 2, 3, 0, 1, 1, 1, 2, 2};  // 4 x 3

GifParts goodParts() {
    return {.width = 4, .height = 3, .minCodeSize = 2, .data = lzwOf(kIndices, 2, true), .globalTable = kFourColours};
}

const struct {
    const char* what;
    void (*change)(GifParts&);
    Bytes rgb;
} kGoodFiles[] = {
    {"the colours of the global table", [](GifParts&) {}, coloured(kIndices, kFourColours)},
    {"a local table comes first", [](GifParts& p) { p.localTable = kOtherColours; }, coloured(kIndices, kOtherColours)},
    {"a local table alone", [](GifParts& p) { std::swap(p.localTable, p.globalTable); },
     coloured(kIndices, kFourColours)},
    {"a transparent index, a comment in two sub-blocks and an empty extension are skipped",
     [](GifParts& p) {
         p.extensions = {0x21, 0xF9, 4, 1, 0, 0, 1, 0, 0x21, 0xFE, 2, 'h', 'i', 1, '!', 0, 0x21, 0xFF, 0};
     },
     coloured(kIndices, kFourColours)},
    {"interlaced rows stay in stored order", [](GifParts& p) { p.interlaced = true; },
     coloured(kIndices, kFourColours)},
    {"codes run on across sub-blocks of three bytes", [](GifParts& p) { p.blockSize = 3; },
     coloured(kIndices, kFourColours)},
    {"the picture is full before the data end", [](GifParts& p) { p.height = 2; },
     coloured({1, 1, 1, 2, 2, 3, 0, 1}, kFourColours)},
    {"an image smaller than the screen fills it from the start; the rest is black",
     [](GifParts& p) { p.height = 4, p.imageHeight = 3, p.globalTable = kOtherColours; },
     coloured({1, 1, 1, 2, 2, 3, 0, 1, 1, 1, 2, 2, 4, 4, 4, 4}, kOtherColoursAndBlack)},
};

TEST(GifDecoder, ReadsTheFirstImage) {
    for (const auto& row : kGoodFiles) {
        SCOPED_TRACE(row.what);
        auto parts = goodParts();
        row.change(parts);
        const auto result = decoded(gifFile(parts));
        EXPECT_TRUE(result.done);
        EXPECT_EQ(result.width, 4u);
        EXPECT_EQ(result.height, parts.height);
        EXPECT_EQ(result.rgb, row.rgb);
        EXPECT_EQ(result.alpha, Bytes{});
    }
}

const struct {
    const char* what;
    void (*damage)(GifParts&);
} kFaults[] = {
    {"no colour table", [](GifParts& p) { p.globalTable = {}; }},
    {"codes of no bits", [](GifParts& p) { p.minCodeSize = 0; }},
    {"codes of 12 bits", [](GifParts& p) { p.minCodeSize = 12; }},
    {"a trailer instead of an image", [](GifParts& p) { p.extensions = {0x3B}; }},
    {"more pixels than the file can hold", [](GifParts& p) { p.width = p.height = 65535; }},
    {"a picture above the limit", [](GifParts& p) { p.width = 65535, p.height = 2000; }},
};

TEST(GifDecoder, RefusesWhatItCannotRead) {
    for (const auto& row : kFaults) {
        SCOPED_TRACE(row.what);
        auto parts = goodParts();
        row.damage(parts);
        EXPECT_TRUE(decoded(gifFile(parts)).refused());
    }
    Bytes file = gifFile(goodParts());
    file[4] = '8';  // GIF88a
    EXPECT_FALSE(decoded(file).valid);
}

TEST(GifDecoder, MakesTheBestOfCutImageData) {
    const Bytes good = gifFile(goodParts());
    const Bytes pixels = coloured(kIndices, kFourColours);
    const std::size_t dataStart = 13 + kFourColours.size() + 11;
    for (std::size_t size = 2; size < good.size(); ++size) {
        SCOPED_TRACE(size);
        const auto result = decoded(cut(good, size));
        ASSERT_EQ(result.done, size >= dataStart);
        if (!result.done) continue;
        const auto differs = std::mismatch(result.rgb.begin(), result.rgb.end(), pixels.begin()).first;
        EXPECT_EQ(std::count(differs, result.rgb.end(), 0), result.rgb.end() - differs) << "a head, then black";
        EXPECT_EQ(result.fault.empty(), result.rgb == pixels);
    }
}

void expectTheSame(const Bytes& packed, unsigned minCodeSize, unsigned colours, std::size_t room) {
    const Bytes palette = noise(colours * std::size_t{3}, 256, colours);
    Bytes out(room * 3);
    LzwExpander expander(minCodeSize, palette, out);
    const LzwEnd end = expander.run(inSubBlocks(packed, 255));
    const PlainPixels plain = expandPlainly(packed, minCodeSize, colours, room);
    ASSERT_EQ(end, plain.end);
    ASSERT_EQ(expander.filled(), plain.indices.size() * 3);
    out.resize(expander.filled());
    ASSERT_TRUE(out == coloured(plain.indices, palette));
}

// Codes of every kind, with a good share of those that only a stray encoder writes.
Bytes strayCodes(unsigned minCodeSize, unsigned colours, unsigned seed) {
    std::mt19937 generator(seed);
    const auto random = [&generator] { return static_cast<unsigned>(generator()); };
    GifCodePacker packer(minCodeSize);
    unsigned known = packer.clear() + 2;
    for (int i = 0; i < 1500; ++i) {
        const unsigned kind = random() % 100;
        const unsigned code = kind == 0   ? packer.clear()
                              : kind < 30 ? random() % colours
                              : kind < 35 ? known + random() % 8
                                          : random() % known;
        if (code == packer.end()) continue;
        known = code == packer.clear() ? code + 2 : known + 1;
        packer.put(code);
    }
    packer.put(packer.end());
    return packer.packed();
}

TEST(LzwExpander, AgreesWithThePlainTablesOnStrayCodes) {
    for (unsigned minCodeSize = 1; minCodeSize <= 11; ++minCodeSize) {
        for (const unsigned colours : {2u, 4u, 16u, 256u}) {
            for (unsigned seed = 0; seed < 4; ++seed) {
                SCOPED_TRACE(testing::Message() << minCodeSize << " bits, " << colours << " colours, seed " << seed);
                expectTheSame(strayCodes(minCodeSize, colours, seed), minCodeSize, colours, 100000);
                expectTheSame(noise(3000, 256, seed), minCodeSize, colours, 30000);
            }
        }
    }
}

TEST(LzwExpander, AgreesWithThePlainTablesOnPictures) {
    for (const unsigned colours : {2u, 8u, 256u}) {
        const unsigned minCodeSize = colours == 2 ? 2 : colours == 8 ? 3 : 8;
        const Bytes indices = noise(std::size_t{320} * 240, colours, colours);
        for (const bool clearWhenFull : {true, false}) {
            expectTheSame(lzwOf(indices, minCodeSize, clearWhenFull), minCodeSize, colours, indices.size());
        }
    }
}

TEST(LzwExpander, FillsEveryLengthOfOutputWithoutATouchBeyond) {
    const Bytes indices(200, 1);
    for (std::size_t room = 0; room <= indices.size(); ++room) expectTheSame(lzwOf(indices, 2, true), 2, 4, room);
}

}  // namespace
}  // namespace grub
