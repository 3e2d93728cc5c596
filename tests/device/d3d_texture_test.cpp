#include <string>

#include "ready_renderer.h"

namespace grub {
namespace {

// A picture drawn with letters: each is a colour of its own, a dot is what lies behind the picture.
using Letters = std::vector<std::string>;

using Pixels = std::vector<std::uint32_t>;  // 0x00RRGGBB

class Textures : public ReadyRenderer {
protected:
    bool upload(Texture& texture, const Letters& letters, TextureTransform transform) {
        std::vector<std::uint8_t> pixels;
        for (const std::string& row : letters)
            for (const char letter : row) pixels.insert(pixels.end(), {static_cast<std::uint8_t>(letter), 10, 20});
        return texture.upload(pixels.data(), transform, nullptr);
    }

    std::unique_ptr<Texture> textureOf(const Letters& letters,
                                       TextureTransform transform = TextureTransform::Identity) {
        auto texture = makeTexture(static_cast<int>(letters[0].size()), static_cast<int>(letters.size()));
        EXPECT_TRUE(upload(*texture, letters, transform));
        return texture;
    }

    // The pixels of row `y` of the screen after a frame over white.
    Pixels shownRow(const Texture& texture, int columns, int y = 0) {
        const auto screen = frameOver(kWhite, [&] { EXPECT_TRUE(drawAt(0, 0, texture)); });
        Pixels pixels;
        for (int x = 0; x < columns; ++x) pixels.push_back(screen.at(x, y));
        return pixels;
    }

    // The letters on the screen, as many as the surface has texels.
    Letters shown(const Texture& texture, int columns, int rows) {
        Letters letters(static_cast<std::size_t>(rows));
        for (int y = 0; y < rows; ++y) {
            for (const std::uint32_t pixel : shownRow(texture, columns, y))
                letters[static_cast<std::size_t>(y)] += pixel == rgb(kWhite) ? '.' : static_cast<char>(pixel >> 16);
        }
        return letters;
    }
};

class SquareTextures : public Textures {
protected:
    SquareTextures() { device.fail(platform::Call::OblongTextures); }
};

TEST_F(SquareTextures, AreTurnedAndMirrored) {
    const struct {
        TextureTransform transform;
        Letters wanted;
    } kTransforms[] = {
        {TextureTransform::Identity, {"abc.", "def.", "....", "...."}},
        {TextureTransform::Rotate90, {"da..", "eb..", "fc..", "...."}},
        {TextureTransform::Rotate180, {"fed.", "cba.", "....", "...."}},
        {TextureTransform::Rotate270, {"cf..", "be..", "ad..", "...."}},
        {TextureTransform::FlipVertical, {"def.", "abc.", "....", "...."}},
        {TextureTransform::FlipHorizontal, {"cba.", "fed.", "....", "...."}},
    };
    for (const auto& [transform, wanted] : kTransforms) {
        const auto texture = textureOf({"abc", "def"}, transform);
        EXPECT_EQ(shown(*texture, 4, 4), wanted) << static_cast<unsigned>(transform);
        EXPECT_EQ(texture->width(), wanted[0].find('.')) << static_cast<unsigned>(transform);
    }
}

TEST_F(SquareTextures, NothingOfAnOlderPictureIsLeft) {
    const auto texture = textureOf({"abc", "def"}, TextureTransform::Rotate90);  // now 2 x 3
    ASSERT_TRUE(upload(*texture, {"gh", "ij", "kl"}, TextureTransform::Rotate270));
    EXPECT_EQ(shown(*texture, 4, 4), (Letters{"hjl.", "gik.", "....", "...."}));
}

TEST_F(Textures, RefuseQuarterTurnsOfASurfaceThatIsNotSquare) {
    const auto texture = textureOf({"abc", "def"});
    EXPECT_FALSE(upload(*texture, {"ghi", "jkl"}, TextureTransform::Rotate90));
    EXPECT_EQ(shown(*texture, 4, 2), (Letters{"abc.", "def."}));
}

// Pixels beside the key's colour, each with one channel of another value.
constexpr std::uint8_t kNearBrown[] = {80, 54, 25, 81, 54, 25, 80, 55, 25, 80, 54, 24};

TEST_F(Textures, TheKeyIsTheOnlyTransparentColourAndServesTheNextUpload) {
    const auto texture = makeTexture(4, 1);
    ASSERT_TRUE(texture->upload(kNearBrown, TextureTransform::Identity, nullptr));
    texture->setColourKey(kBrown);
    EXPECT_EQ(shownRow(*texture, 1), Pixels{rgb(kBrown)}) << "a key alone changes no pixel";
    ASSERT_TRUE(texture->upload(kNearBrown, TextureTransform::Identity, nullptr));
    EXPECT_EQ(shownRow(*texture, 4), (Pixels{rgb(kWhite), 0x513619, 0x503719, 0x503618}));
    constexpr std::uint8_t kAlpha[] = {255, 0, 0, 0};
    ASSERT_TRUE(texture->upload(kNearBrown, TextureTransform::Identity, kAlpha));
    EXPECT_EQ(shownRow(*texture, 2), (Pixels{rgb(kBrown), rgb(kWhite)})) << "an alpha plane beats the key";
}

TEST_F(Textures, ACloneHasPixelsSizesAndKeyOfItsOwn) {
    const Letters picture{"abc", "def"};
    const auto texture = textureOf(picture);
    texture->setColourKey({'e', 10, 20});
    ASSERT_TRUE(upload(*texture, picture, TextureTransform::FlipHorizontal));
    const std::unique_ptr<Texture> clone(texture->clone());
    ASSERT_TRUE(clone->isValid());
    ASSERT_TRUE(upload(*texture, {"ggg", "ggg"}, TextureTransform::Identity));
    EXPECT_EQ(shown(*clone, 4, 2), (Letters{"cba.", "f.d."}));
    ASSERT_TRUE(upload(*clone, picture, TextureTransform::Identity));
    EXPECT_EQ(shown(*clone, 4, 2), (Letters{"abc.", "d.f."})) << "the key went along";
}

TEST_F(Textures, OfSixteenBitsKeepTheUpperFourButCompareTheKeyWithAll) {
    device.refuse(D3DFMT_A8R8G8B8, D3DERR_NOTAVAILABLE);
    ASSERT_TRUE(renderer.shutdown() && renderer.init());
    const auto texture = makeTexture(2, 1, {{{0x1F, 0x80, 0xFF}}, {{0, 0, 0}, 0x9A}});
    EXPECT_EQ(shownRow(*texture, 3), (Pixels{0x1188FF, 0x666666, 0xFFFFFF})) << "opacity 0x99 over white";
    texture->setColourKey({0x11, 0x22, 0x33});
    constexpr std::uint8_t kPixels[] = {0x11, 0x22, 0x33, 0x12, 0x22, 0x33};
    ASSERT_TRUE(texture->upload(kPixels, TextureTransform::Identity, nullptr));
    EXPECT_EQ(shownRow(*texture, 2), (Pixels{0xFFFFFF, 0x112233}));
}

}  // namespace
}  // namespace grub
