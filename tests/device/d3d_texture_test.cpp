#include <string>

#include "ready_renderer.h"

namespace grub {
namespace {

using platform::DeviceFunction;

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

    // The letters on the screen, as many as the surface has texels.
    Letters shown(const Texture& texture, int columns, int rows) {
        const auto screen = frameOver(kWhite, [&] { EXPECT_TRUE(renderer.draw(0, 0, texture, 1.0F)); });
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

    // Opacity of one texel as black shows it over white: 255 hides the white.
    std::uint32_t coverOf(Texture& texture, int x, int y) {
        const auto screen = frameOver(kWhite, [&] { EXPECT_TRUE(renderer.draw(0, 0, texture, 1.0F)); });
        return 255 - (screen.at(x, y) & 0xFF);
    }
};

class SquareTextures : public Textures {
protected:
    SquareTextures() { device.allowSquareTexturesOnly(); }
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

TEST_F(SquareTextures, HaveSquareSurfacesForAnyPicture) {
    device.forgetCalls();
    const auto texture = makeTexture(100, 50);
    ASSERT_EQ(device.count(DeviceFunction::CreateTexture), 1u);
    EXPECT_EQ(device.calls()[0].first, 128u);
    EXPECT_EQ(device.calls()[0].second, 128u);
}

TEST_F(Textures, HaveSurfacesOfPowersOfTwo) {
    constexpr struct {
        int width, height;
        DWORD surfaceWidth, surfaceHeight;
    } kSizes[] = {{100, 50, 128, 64}, {64, 64, 64, 64}, {65, 1, 128, 1}, {0, 0, 1, 1}, {800, 600, 1024, 1024}};
    for (const auto& size : kSizes) {
        device.forgetCalls();
        const auto texture = makeTexture(size.width, size.height);
        EXPECT_TRUE(texture->isValid());
        EXPECT_EQ(device.calls()[0].first, size.surfaceWidth) << size.width;
        EXPECT_EQ(device.calls()[0].second, size.surfaceHeight) << size.height;
    }
}

TEST_F(Textures, RefuseQuarterTurnsOfASurfaceThatIsNotSquare) {
    const Letters picture{"abc", "def"};
    const auto texture = textureOf(picture);
    ASSERT_TRUE(upload(*texture, picture, TextureTransform::Identity));
    EXPECT_FALSE(upload(*texture, {"ghi", "jkl"}, TextureTransform::Rotate90));
    EXPECT_FALSE(upload(*texture, {"ghi", "jkl"}, TextureTransform::Rotate270));
    EXPECT_FALSE(upload(*texture, {"ghi", "jkl"}, static_cast<TextureTransform>(3)));
    EXPECT_EQ(shown(*texture, 4, 2), (Letters{"abc.", "def."}));
    EXPECT_EQ(texture->width(), 3);
}

TEST_F(Textures, ARefusedSurfaceOrLockIsReported) {
    device.fail(DeviceFunction::CreateTexture, D3DERR_OUTOFVIDEOMEMORY);
    const auto invalid = makeTexture(2, 2);
    device.fail(DeviceFunction::CreateTexture, D3D_OK);
    ASSERT_NE(invalid, nullptr);
    EXPECT_FALSE(invalid->isValid());
    EXPECT_FALSE(upload(*invalid, {"ab", "cd"}, TextureTransform::Identity));
    frameOver(kWhite, [&] { EXPECT_FALSE(renderer.draw(0, 0, *invalid, 1.0F)); });

    const auto texture = makeTexture(2, 2);
    for (const DeviceFunction function : {DeviceFunction::LockTexture, DeviceFunction::UnlockTexture}) {
        device.fail(function, D3DERR_INVALIDCALL);
        EXPECT_FALSE(upload(*texture, {"ab", "cd"}, TextureTransform::Identity));
        device.fail(function, D3D_OK);
    }
}

TEST_F(Textures, AHugePictureIsRefusedBeforeMemoryIsAsked) {
    EXPECT_FALSE(makeTexture(65535, 65535)->isValid());
    EXPECT_FALSE(makeTexture(4097, 1)->isValid());
    EXPECT_TRUE(makeTexture(4096, 1)->isValid());
}

TEST_F(Textures, TheKeyIsTheOnlyTransparentColourAndServesTheNextUpload) {
    const auto texture = makeTexture(2, 1);
    const std::uint8_t pixels[] = {80, 54, 25, 80, 54, 24};
    ASSERT_TRUE(texture->upload(pixels, TextureTransform::Identity, nullptr));
    texture->setColourKey(kBrown);
    EXPECT_EQ(coverOf(*texture, 0, 0), 255u - 25) << "a key alone changes no pixel";
    ASSERT_TRUE(texture->upload(pixels, TextureTransform::Identity, nullptr));
    EXPECT_EQ(coverOf(*texture, 0, 0), 0u);
    EXPECT_EQ(coverOf(*texture, 1, 0), 255u - 24);
}

TEST_F(Textures, AnAlphaPlaneBeatsTheKey) {
    const auto texture = makeTexture(2, 1);
    texture->setColourKey(kBrown);
    const std::uint8_t pixels[] = {80, 54, 25, 0, 0, 0};
    const std::uint8_t alpha[] = {255, 0};
    ASSERT_TRUE(texture->upload(pixels, TextureTransform::Identity, alpha));
    EXPECT_EQ(coverOf(*texture, 0, 0), 255u - 25);
    EXPECT_EQ(coverOf(*texture, 1, 0), 0u);
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

TEST_F(Textures, AFailedCopyLeavesTheCloneInvalid) {
    const auto texture = textureOf({"ab"});
    for (const DeviceFunction function : {DeviceFunction::CreateTexture, DeviceFunction::LockTexture}) {
        device.fail(function, D3DERR_OUTOFVIDEOMEMORY);
        const std::unique_ptr<Texture> clone(texture->clone());
        EXPECT_FALSE(clone->isValid());
        device.fail(function, D3D_OK);
    }
    EXPECT_TRUE(upload(*texture, {"cd"}, TextureTransform::Identity)) << "the original is not left locked";
}

class SixteenBitTextures : public Textures {
protected:
    SixteenBitTextures() { device.refuse(D3DFMT_A8R8G8B8, D3DERR_NOTAVAILABLE); }
};

TEST_F(SixteenBitTextures, KeepTheUpperFourBitsOfEveryChannel) {
    const auto texture = makeTexture(2, 1, {{{0x1F, 0x80, 0xFF}}, {{0, 0, 0}, 0x9A}});
    const auto screen = frameOver(kWhite, [&] { renderer.draw(0, 0, *texture, 1.0F); });
    EXPECT_EQ(screen.at(0, 0), 0x1188FFu);
    EXPECT_EQ(screen.at(1, 0), 0x666666u) << "opacity 0x99 over white";
    EXPECT_EQ(screen.at(2, 0), 0xFFFFFFu);
}

TEST_F(SixteenBitTextures, CompareTheKeyWithAllBits) {
    const auto texture = makeTexture(2, 1);
    texture->setColourKey({0x11, 0x22, 0x33});
    const std::uint8_t pixels[] = {0x11, 0x22, 0x33, 0x12, 0x22, 0x33};
    ASSERT_TRUE(texture->upload(pixels, TextureTransform::Identity, nullptr));
    const auto screen = frameOver(kWhite, [&] { renderer.draw(0, 0, *texture, 1.0F); });
    EXPECT_EQ(screen.at(0, 0), 0xFFFFFFu);
    EXPECT_EQ(screen.at(1, 0), 0x112233u);
}

}  // namespace
}  // namespace grub
