#include <gtest/gtest.h>

#include "gif_lzw.h"
#include "gif_writer.h"
#include "plain_lzw.h"

namespace grub {
namespace {

Bytes inSubBlocks(const Bytes& packed) {
    Bytes blocks;
    for (std::size_t at = 0; at < packed.size(); at += 255) {
        const std::size_t length = std::min<std::size_t>(255, packed.size() - at);
        blocks.push_back(static_cast<std::uint8_t>(length));
        blocks.insert(blocks.end(), packed.begin() + static_cast<std::ptrdiff_t>(at),
                      packed.begin() + static_cast<std::ptrdiff_t>(at + length));
    }
    blocks.push_back(0);
    return blocks;
}

void expectTheSame(const Bytes& packed, unsigned minCodeSize, unsigned colours, std::size_t room) {
    const Bytes palette = noise(colours * std::size_t{3}, 256, colours);
    Bytes out(room * 3);
    LzwExpander expander(minCodeSize, palette, out);
    const LzwEnd end = expander.run(inSubBlocks(packed));
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
        const Bytes indices = drawnIndices(320, 240, colours, colours);
        for (const bool clearWhenFull : {true, false}) {
            expectTheSame(lzwOf(indices, minCodeSize, clearWhenFull), minCodeSize, colours, indices.size());
        }
    }
}

TEST(LzwExpander, FillsEveryLengthOfOutputWithoutATouchBeyond) {
    const Bytes indices(200, 1);
    for (std::size_t room = 0; room <= indices.size(); ++room) expectTheSame(lzwOf(indices, 2, true), 2, 4, room);
}

TEST(LzwExpander, EndsAWalkThatGoesRoundInARing) {
    // After the clear code stand codes that are not known yet: string 260 leads to 300, and 300 back to 260.
    GifCodePacker packer(8);
    for (const unsigned code : {256u, 260u, 300u}) packer.put(code);
    for (unsigned i = 0; i < 60; ++i) packer.put(i == 40 ? 260 : i % 2);
    packer.put(300);
    Bytes out(300000);
    const Bytes palette(6, 1);
    LzwExpander expander(8, palette, out);
    const auto packed = packer.packed();
    const auto plain = expandPlainly(packed, 8, 2, 100000);
    EXPECT_EQ(expander.run(inSubBlocks(packed)), plain.end);
    EXPECT_EQ(expander.filled(), plain.indices.size() * 3);
}

}  // namespace
}  // namespace grub
