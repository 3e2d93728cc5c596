#include <gtest/gtest.h>

#include "bmp_writer.h"
#include "fake_renderer.h"
#include "frame_strip.h"
#include "gif_writer.h"

namespace grub {
namespace {

constexpr auto kFlip = TextureTransform::FlipHorizontal;
const Bytes kRgb{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27};

// 1 pixel wide, `height` pixels high, from 1 to 9, with the bytes of kRgb.
SharedBuffer source(unsigned height, const Bytes& alpha = {}) { return bufferOf(writeBmp(1, height, kRgb, alpha)); }

class Sprites : public testing::Test {
protected:
    FakeRenderer renderer;
};

TEST_F(Sprites, HoldATextureFromTheFirstUseToTheLast) {
    Picture picture(source(2), kFlip);
    EXPECT_EQ(picture.width(), 1);
    EXPECT_EQ(picture.height(), 2);
    EXPECT_TRUE(picture.acquire() && picture.acquire());
    ASSERT_EQ(renderer.textures.size(), 1u);
    EXPECT_EQ(renderer.textures[0]->uploadedRgb, Bytes(kRgb.begin(), kRgb.begin() + 6));
    EXPECT_EQ(renderer.textures[0]->uploadedAlpha, Bytes{});
    EXPECT_EQ(renderer.textures[0]->uploadedTransform, kFlip);
    EXPECT_TRUE(picture.release());
    EXPECT_TRUE(picture.isAcquired());
    picture.draw(renderer, {-7, 300}, 0.5f);
    ASSERT_EQ(renderer.drawn.size(), 1u);
    EXPECT_EQ(renderer.drawn[0], (FakeRenderer::Drawn{-7, 300, picture.texture(), 0.5f}));
    EXPECT_TRUE(picture.release() && picture.release()) << "a release too many does nothing";
    EXPECT_FALSE(picture.isAcquired());
    EXPECT_TRUE(renderer.textures.empty());
    EXPECT_TRUE(picture.acquire()) << "the next use makes the texture again";
    EXPECT_EQ(renderer.textures.size(), 1u);
}

TEST_F(Sprites, CountNoUseThatFailed) {
    const struct {
        const char* what;
        SharedBuffer source;
        int uploads;
        bool ready;
    } kFaults[] = {
        {"no source", {}, 9, true},
        {"no decoder", bufferOf(Bytes{'?', '?'}), 9, true},
        {"pixels missing", bufferOf(bmpFile(1, 9, 24, {})), 9, true},
        {"no texture", source(9), 9, false},
        {"the third upload refused", source(9), 2, true},
    };
    for (const auto& row : kFaults) {
        SCOPED_TRACE(row.what);
        renderer.uploadsLeft = row.uploads;
        renderer.ready = row.ready;
        FrameStrip frames(row.source, 3);
        EXPECT_FALSE(frames.acquire());
        EXPECT_FALSE(frames.isAcquired());
        EXPECT_NE(frames.fault(), "");
        EXPECT_TRUE(renderer.textures.empty()) << "all frames or none";
        frames.draw(renderer, {1, 2}, 1.0f);
        EXPECT_TRUE(renderer.drawn.empty());
    }
}

TEST_F(Sprites, ShowWhatADamagedImageHoldsAndSaySo) {
    Bytes file = writeGif(2, 2, {0, 1, 1, 0}, Bytes(12, 7));
    file.erase(file.end() - 4, file.end());  // the last codes, the end of the data, the trailer
    Picture picture(bufferOf(file));
    EXPECT_TRUE(picture.acquire());
    EXPECT_EQ(picture.fault(), "GIF: the image data ends before the picture is full");
}

TEST_F(Sprites, ForgetAllUsesWhenAPictureIsReset) {
    Picture picture(source(2));
    picture.setColourKey(kBrown);
    ASSERT_TRUE(picture.acquire() && picture.acquire());
    EXPECT_FALSE(picture.reset({}, kFlip));
    EXPECT_TRUE(picture.isAcquired()) << "an empty source changes nothing";
    EXPECT_TRUE(picture.reset(source(3), kFlip));
    EXPECT_FALSE(picture.isAcquired());
    EXPECT_TRUE(renderer.textures.empty());
    EXPECT_EQ(picture.height(), 3);
    ASSERT_TRUE(picture.acquire());
    EXPECT_EQ(renderer.textures[0]->uploadedTransform, kFlip);
    EXPECT_EQ(renderer.textures[0]->keys, std::vector{kBrown}) << "the colour key stays";
}

TEST_F(Sprites, SetTheColourKeyOfEachFrameBeforeItsUpload) {
    FrameStrip frames(source(6), 3);
    ASSERT_TRUE(frames.acquire());
    frames.setColourKey(kBlue);
    for (const FakeTexture* texture : renderer.textures) {
        EXPECT_EQ(texture->keys, std::vector{kBlue}) << "textures that exist take the key";
        EXPECT_EQ(texture->keysBeforeUpload, 0u);
    }
    frames.release();
    ASSERT_TRUE(frames.acquire());
    ASSERT_EQ(renderer.textures.size(), 2u);
    for (const FakeTexture* texture : renderer.textures) EXPECT_EQ(texture->keysBeforeUpload, 1u);
}

TEST_F(Sprites, AStripIsCutIntoWholeFramesInTheirOrder) {
    FrameStrip frames(source(8, {1, 2, 3, 4, 5, 6, 7, 8}), 3, kFlip);  // two rows are left over
    EXPECT_EQ(frames.stripHeight(), 8);
    EXPECT_EQ(frames.height(), 3);
    ASSERT_EQ(frames.frameCount(), 2);
    ASSERT_TRUE(frames.acquire());
    ASSERT_EQ(renderer.textures.size(), 2u);
    const Bytes frameRgb[] = {{kRgb.begin(), kRgb.begin() + 9}, {kRgb.begin() + 9, kRgb.begin() + 18}};
    for (std::uint16_t i = 0; i < 2; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(frames.setFrame(i), i);
        const auto* texture = static_cast<const FakeTexture*>(frames.texture());
        EXPECT_EQ(texture->uploadedRgb, frameRgb[i]);
        EXPECT_EQ(texture->uploadedAlpha, i == 0 ? (Bytes{1, 2, 3}) : (Bytes{4, 5, 6}));
        EXPECT_EQ(texture->uploadedTransform, kFlip);
    }
    EXPECT_EQ(frames.setFrame(2), 1) << "an index beyond the frames is ignored";
    EXPECT_EQ(frames.frame(), 1);
}

TEST_F(Sprites, AStripShowsNothingWithoutAFrame) {
    for (const unsigned frameHeight : {0u, 9u, 65535u}) {
        FrameStrip frames(source(8), static_cast<std::uint16_t>(frameHeight));
        EXPECT_EQ(frames.frameCount(), 0);
        EXPECT_TRUE(frames.acquire()) << "there was nothing to fail";
        frames.draw(renderer, {}, 1.0f);
        EXPECT_TRUE(renderer.drawn.empty()) << frameHeight;
    }
}

TEST_F(Sprites, AStripDrawsNothingForAFrameOfItsOldImage) {
    FrameStrip frames(source(8), 1);
    ASSERT_TRUE(frames.acquire());
    frames.setFrame(7);
    ASSERT_TRUE(frames.reset(source(4), 2, kFlip));
    EXPECT_TRUE(renderer.textures.empty());
    EXPECT_EQ(frames.frame(), 7) << "the index stays";
    ASSERT_TRUE(frames.acquire());
    frames.draw(renderer, {}, 1.0f);
    EXPECT_TRUE(renderer.drawn.empty());
    frames.setFrame(1);
    frames.draw(renderer, {}, 1.0f);
    ASSERT_EQ(renderer.drawn.size(), 1u);
    EXPECT_EQ(renderer.drawn[0].texture, renderer.textures.at(1));
}

}  // namespace
}  // namespace grub
