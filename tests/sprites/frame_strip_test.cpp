#include "frame_strip.h"

#include <gtest/gtest.h>

#include "bmp_writer.h"
#include "fake_renderer.h"

namespace grub {
namespace {

constexpr std::size_t kFramePixels = std::size_t{64} * 64;
constexpr auto kIdentity = TextureTransform::Identity;

// `frames` frames of 64 x 64 pixels, all bytes of frame i are 10 * (i + 1); then `restRows` rows of 255.
Bytes stripRgb(unsigned frames, unsigned restRows) {
    Bytes rgb;
    for (unsigned i = 0; i < frames; ++i)
        rgb.insert(rgb.end(), kFramePixels * 3, static_cast<std::uint8_t>(10 * (i + 1)));
    rgb.insert(rgb.end(), std::size_t{restRows} * 64 * 3, 255);
    return rgb;
}

SharedBuffer strip(unsigned frames, unsigned restRows = 0) {
    return bufferOf(writeBmp(64, frames * 64 + restRows, stripRgb(frames, restRows)));
}

Bytes frameRgb(unsigned index) { return Bytes(kFramePixels * 3, static_cast<std::uint8_t>(10 * (index + 1))); }

TEST(FrameStrip, UsesWholeFramesOnly) {
    FakeRenderer renderer;
    FrameStrip frames(strip(3, 8), 64);
    EXPECT_EQ(frames.stripHeight(), 200);
    EXPECT_EQ(frames.frameCount(), 3);
    EXPECT_EQ(frames.width(), 64);
    EXPECT_EQ(frames.height(), 64) << "that of a frame";
    ASSERT_TRUE(frames.acquire());
    EXPECT_EQ(renderer.textures.size(), 3u);
}

TEST(FrameStrip, TransformsEachFrameAndKeepsTheirOrder) {
    for (const auto transform : {TextureTransform::FlipVertical, TextureTransform::FlipHorizontal}) {
        FakeRenderer renderer;
        FrameStrip frames(strip(3), 64, transform);
        ASSERT_TRUE(frames.acquire());
        for (std::uint16_t i = 0; i < 3; ++i) {
            EXPECT_EQ(renderer.textures[i]->uploadedTransform, transform);
            EXPECT_TRUE(renderer.textures[i]->uploadedRgb == frameRgb(i)) << i;
            EXPECT_EQ(frames.setFrame(i), i);
            EXPECT_EQ(frames.texture(), renderer.textures[i]);
        }
    }
}

TEST(FrameStrip, CutsTheAlphaPlaneToo) {
    FakeRenderer renderer;
    Bytes alpha(kFramePixels, 1);
    alpha.insert(alpha.end(), kFramePixels, 2);
    FrameStrip frames(bufferOf(writeBmp(64, 128, stripRgb(2, 0), alpha)), 64);
    ASSERT_TRUE(frames.acquire());
    EXPECT_TRUE(renderer.textures[0]->uploadedAlpha == Bytes(kFramePixels, 1));
    EXPECT_TRUE(renderer.textures[1]->uploadedAlpha == Bytes(kFramePixels, 2));
}

TEST(FrameStrip, IgnoresFramesItDoesNotHave) {
    FrameStrip frames(strip(3), 64);
    EXPECT_EQ(frames.setFrame(2), 2);
    EXPECT_EQ(frames.setFrame(3), 2);
    EXPECT_EQ(frames.setFrame(65535), 2);
    EXPECT_EQ(frames.frame(), 2);
}

TEST(FrameStrip, HoldsItsTexturesFromTheFirstUseToTheLast) {
    FakeRenderer renderer;
    FrameStrip frames(strip(2), 64);
    ASSERT_TRUE(frames.acquire() && frames.acquire());
    EXPECT_EQ(renderer.textures.size(), 2u);
    frames.release();
    EXPECT_EQ(renderer.textures.size(), 2u);
    frames.release();
    EXPECT_TRUE(renderer.textures.empty());
    EXPECT_EQ(frames.texture(), nullptr);
}

TEST(FrameStrip, HasNothingToShowWithoutAFrame) {
    FakeRenderer renderer;
    for (const unsigned frameHeight : {0u, 41u, 65535u}) {
        SCOPED_TRACE(frameHeight);
        FrameStrip frames(bufferOf(writeBmp(64, 40, Bytes(std::size_t{64} * 40 * 3, 1))),
                          static_cast<std::uint16_t>(frameHeight));
        EXPECT_EQ(frames.frameCount(), 0);
        EXPECT_TRUE(frames.acquire()) << "there was nothing that could fail";
        EXPECT_TRUE(frames.isAcquired());
        EXPECT_EQ(frames.texture(), nullptr);
        frames.draw(renderer, {}, 1.0f);
        EXPECT_TRUE(renderer.drawn.empty());
    }
}

TEST(FrameStrip, DrawsNothingForAFrameOfItsOldStrip) {
    FakeRenderer renderer;
    FrameStrip frames(strip(8), 64);
    frames.setColourKey(kBlue);
    ASSERT_TRUE(frames.acquire());
    frames.setFrame(7);
    ASSERT_TRUE(frames.reset(strip(2), 64, kIdentity));
    EXPECT_FALSE(frames.isAcquired());
    EXPECT_TRUE(renderer.textures.empty());
    EXPECT_EQ(frames.frame(), 7) << "it stays where it was";
    ASSERT_TRUE(frames.acquire());
    EXPECT_EQ(renderer.textures.at(1)->keys, std::vector{kBlue});
    frames.draw(renderer, {}, 1.0f);
    EXPECT_TRUE(renderer.drawn.empty());
    frames.setFrame(1);
    frames.draw(renderer, {3, 4}, 1.0f);
    ASSERT_EQ(renderer.drawn.size(), 1u);
    EXPECT_EQ(renderer.drawn[0].texture, renderer.textures.at(1));
    EXPECT_FALSE(frames.reset({}, 64, kIdentity));
    EXPECT_EQ(frames.frameCount(), 2);
    EXPECT_TRUE(frames.isAcquired());
}

TEST(FrameStrip, IsAcquiredWithAllItsFramesOrNotAtAll) {
    FakeRenderer renderer;
    renderer.uploadsLeft = 2;
    FrameStrip frames(strip(3), 64);
    EXPECT_FALSE(frames.acquire());
    EXPECT_FALSE(frames.isAcquired());
    EXPECT_TRUE(renderer.textures.empty());
    renderer.uploadsLeft = 3;
    EXPECT_TRUE(frames.acquire());
    EXPECT_EQ(renderer.textures.size(), 3u);
}

TEST(FrameStrip, TellsEveryFrameItsColourKey) {
    FakeRenderer renderer;
    FrameStrip frames(strip(3), 64);
    ASSERT_TRUE(frames.acquire());
    frames.setColourKey(kBrown);
    for (const FakeTexture* texture : renderer.textures) {
        EXPECT_EQ(texture->keys, std::vector{kBrown});
        EXPECT_EQ(texture->keysBeforeUpload, 0u);
    }
}

TEST(FrameStrip, CanBeDestroyedAsAGraphic) {
    FakeRenderer renderer;
    std::unique_ptr<Graphic> graphic = std::make_unique<FrameStrip>(strip(2), std::uint16_t{64});
    ASSERT_TRUE(graphic->acquire());
    graphic.reset();
    EXPECT_TRUE(renderer.textures.empty());
}

}  // namespace
}  // namespace grub
