#include <string>

#include "ready_renderer.h"

namespace grub {
namespace {

// A picture drawn with letters: each is a colour of its own, a dot is what lies behind the picture.
using Letters = std::vector<std::string>;

Colour colourOf(char letter) { return {static_cast<std::uint8_t>(letter), 10, 20}; }

class Textures : public ReadyRenderer {
protected:
    std::unique_ptr<Texture> textureOf(const Letters& letters) {
        return makeTexture(static_cast<int>(letters[0].size()), static_cast<int>(letters.size()));
    }

    bool upload(Texture& texture, const Letters& letters, TextureTransform transform) {
        std::vector<std::uint8_t> pixels;
        for (const std::string& row : letters) {
            for (const char letter : row) {
                const Colour colour = colourOf(letter);
                pixels.insert(pixels.end(), {colour.r, colour.g, colour.b});
            }
        }
        return texture.upload(pixels.data(), transform, nullptr);
    }

    ScreenPixels shownOverWhite(const Texture& texture) {
        return frameOver(kWhite, [&] { EXPECT_TRUE(drawAt(0, 0, texture)); });
    }

    // The letters on the screen, as many as the surface has texels.
    Letters shown(const Texture& texture, int columns, int rows) {
        const auto screen = shownOverWhite(texture);
        Letters letters;
        for (int y = 0; y < rows; ++y) {
            letters.emplace_back();
            for (int x = 0; x < columns; ++x) {
                const std::uint32_t pixel = screen.at(x, y);
                letters.back() += pixel == rgb(kWhite) ? '.' : static_cast<char>(pixel >> 16);
            }
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
        const Letters picture{"abc", "def"};
        const auto texture = textureOf(picture);
        ASSERT_TRUE(upload(*texture, picture, transform));
        EXPECT_EQ(shown(*texture, 4, 4), wanted) << static_cast<unsigned>(transform);
        const bool turned = transform == TextureTransform::Rotate90 || transform == TextureTransform::Rotate270;
        EXPECT_EQ(texture->width(), turned ? 2 : 3);
        EXPECT_EQ(texture->height(), turned ? 3 : 2);
    }
}

TEST_F(SquareTextures, NothingOfAnOlderPictureIsLeft) {
    const auto texture = textureOf({"abc", "def"});
    ASSERT_TRUE(upload(*texture, {"abc", "def"}, TextureTransform::Rotate90));  // now 2 x 3
    ASSERT_TRUE(upload(*texture, {"gh", "ij", "kl"}, TextureTransform::Rotate270));
    EXPECT_EQ(shown(*texture, 4, 4), (Letters{"hjl.", "gik.", "....", "...."}));
}

TEST_F(Textures, RefuseQuarterTurnsOfASurfaceThatIsNotSquare) {
    const Letters picture{"abc", "def"};
    const auto texture = textureOf(picture);
    ASSERT_TRUE(upload(*texture, picture, TextureTransform::Identity));
    EXPECT_FALSE(upload(*texture, {"ghi", "jkl"}, TextureTransform::Rotate90));
    EXPECT_FALSE(upload(*texture, {"ghi", "jkl"}, TextureTransform::Rotate270));
    EXPECT_FALSE(upload(*texture, {"ghi", "jkl"}, static_cast<TextureTransform>(3))) << "no transform";
    EXPECT_EQ(shown(*texture, 4, 2), (Letters{"abc.", "def."}));
    EXPECT_EQ(texture->width(), 3);
}

// Pixels beside the key's colour, each with one channel of another value.
constexpr std::uint8_t kNearBrown[] = {80, 54, 25, 81, 54, 25, 80, 55, 25, 80, 54, 24};

TEST_F(Textures, TheKeyIsTheOnlyTransparentColourAndServesTheNextUpload) {
    const auto texture = makeTexture(4, 1);
    ASSERT_TRUE(texture->upload(kNearBrown, TextureTransform::Identity, nullptr));
    texture->setColourKey(kBrown);
    EXPECT_EQ(shownOverWhite(*texture).at(0, 0), rgb(kBrown)) << "a key alone changes no pixel";
    ASSERT_TRUE(texture->upload(kNearBrown, TextureTransform::Identity, nullptr));
    const auto screen = shownOverWhite(*texture);
    EXPECT_EQ(screen.at(0, 0), rgb(kWhite));
    EXPECT_EQ(screen.at(1, 0), 0x513619u);
    EXPECT_EQ(screen.at(2, 0), 0x503719u);
    EXPECT_EQ(screen.at(3, 0), 0x503618u);
}

TEST_F(Textures, AnAlphaPlaneBeatsTheKey) {
    const auto texture = makeTexture(4, 1);
    texture->setColourKey(kBrown);
    constexpr std::uint8_t kAlpha[] = {255, 0, 0, 0};
    ASSERT_TRUE(texture->upload(kNearBrown, TextureTransform::Identity, kAlpha));
    const auto screen = shownOverWhite(*texture);
    EXPECT_EQ(screen.at(0, 0), rgb(kBrown));
    EXPECT_EQ(screen.at(1, 0), rgb(kWhite));
}

TEST_F(Textures, ACloneHasPixelsSizesAndKeyOfItsOwn) {
    const Letters picture{"abc", "def"};
    const auto texture = textureOf(picture);
    texture->setColourKey(colourOf('e'));
    ASSERT_TRUE(upload(*texture, picture, TextureTransform::FlipHorizontal));
    const std::unique_ptr<Texture> clone(texture->clone());
    ASSERT_TRUE(clone->isValid());
    ASSERT_TRUE(upload(*texture, {"ggg", "ggg"}, TextureTransform::Identity));
    EXPECT_EQ(shown(*clone, 4, 2), (Letters{"cba.", "f.d."}));
    EXPECT_EQ(clone->width(), 3);
    ASSERT_TRUE(upload(*clone, picture, TextureTransform::Identity));
    EXPECT_EQ(shown(*clone, 4, 2), (Letters{"abc.", "d.f."})) << "the key went along";
}

class SixteenBitTextures : public Textures {
protected:
    SixteenBitTextures() { device.refuse(D3DFMT_A8R8G8B8, D3DERR_NOTAVAILABLE); }
};

TEST_F(SixteenBitTextures, KeepTheUpperFourBitsButCompareTheKeyWithAll) {
    const auto texture = makeTexture(2, 1, {{{0x1F, 0x80, 0xFF}}, {{0, 0, 0}, 0x9A}});
    EXPECT_EQ(shownOverWhite(*texture).at(0, 0), 0x1188FFu);
    EXPECT_EQ(shownOverWhite(*texture).at(1, 0), 0x666666u) << "opacity 0x99 over white";
    EXPECT_EQ(shownOverWhite(*texture).at(2, 0), 0xFFFFFFu);
    texture->setColourKey({0x11, 0x22, 0x33});
    constexpr std::uint8_t kPixels[] = {0x11, 0x22, 0x33, 0x12, 0x22, 0x33};
    ASSERT_TRUE(texture->upload(kPixels, TextureTransform::Identity, nullptr));
    EXPECT_EQ(shownOverWhite(*texture).at(0, 0), 0xFFFFFFu);
    EXPECT_EQ(shownOverWhite(*texture).at(1, 0), 0x112233u);
}

}  // namespace
}  // namespace grub
