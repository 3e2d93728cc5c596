#include "picture.h"

#include <gtest/gtest.h>

#include "bmp_writer.h"
#include "fake_renderer.h"
#include "gif_writer.h"

namespace grub {
namespace {

constexpr auto kIdentity = TextureTransform::Identity;
const Bytes kRgb{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};  // 2 x 2

SharedBuffer goodSource() { return bufferOf(writeBmp(2, 2, kRgb)); }
// Understood header, pixels missing.
SharedBuffer cutSource() { return bufferOf(bmpFile(2, 2, 24, {})); }

TEST(Picture, ReadsItsSizeAndNoMore) {
    FakeRenderer renderer;
    const Picture picture(goodSource());
    EXPECT_EQ(picture.width(), 2);
    EXPECT_EQ(picture.height(), 2);
    EXPECT_FALSE(picture.isAcquired());
    EXPECT_TRUE(renderer.textures.empty());
    EXPECT_EQ(Picture(bufferOf(Bytes{'?', '?'})).width(), 0);
    EXPECT_EQ(Picture().height(), 0);
}

TEST(Picture, HoldsATextureFromTheFirstUseToTheLast) {
    FakeRenderer renderer;
    Picture picture(goodSource(), TextureTransform::FlipVertical);
    EXPECT_TRUE(picture.acquire());
    EXPECT_TRUE(picture.acquire());
    ASSERT_EQ(renderer.textures.size(), 1u);
    const FakeTexture& texture = *renderer.textures[0];
    EXPECT_EQ(picture.texture(), &texture);
    EXPECT_EQ(texture.uploadedRgb, kRgb);
    EXPECT_EQ(texture.uploadedAlpha, Bytes{});
    EXPECT_EQ(texture.uploadedTransform, TextureTransform::FlipVertical);
    EXPECT_TRUE(picture.release());
    EXPECT_TRUE(picture.isAcquired());
    EXPECT_TRUE(picture.release());
    EXPECT_FALSE(picture.isAcquired());
    EXPECT_TRUE(renderer.textures.empty());
    EXPECT_TRUE(picture.release()) << "a release too many does nothing";
    EXPECT_TRUE(picture.acquire()) << "and is not owed";
    EXPECT_EQ(renderer.textures.size(), 1u);
}

TEST(Picture, HandsOnTheAlphaOfItsImage) {
    FakeRenderer renderer;
    Picture picture(bufferOf(writeBmp(2, 2, kRgb, {9, 8, 7, 6})));
    ASSERT_TRUE(picture.acquire());
    EXPECT_EQ(renderer.textures[0]->uploadedAlpha, (Bytes{9, 8, 7, 6}));
}

TEST(Picture, TakesItsTextureWithIt) {
    FakeRenderer renderer;
    {
        Picture picture(goodSource());
        ASSERT_TRUE(picture.acquire());
    }
    EXPECT_TRUE(renderer.textures.empty());
}

struct AcquireFault {
    const char* what;
    SharedBuffer (*source)();
    void (*breakRenderer)(FakeRenderer&);
};

const AcquireFault kAcquireFaults[] = {
    {"no source", [] { return SharedBuffer(); }, [](FakeRenderer&) {}},
    {"no decoder",
     [] {
         return bufferOf(Bytes{'?', '?'});
     },
     [](FakeRenderer&) {}},
    {"pixels missing", cutSource, [](FakeRenderer&) {}},
    {"no texture", goodSource, [](FakeRenderer& r) { r.ready = false; }},
    {"upload refused", goodSource, [](FakeRenderer& r) { r.uploadsLeft = 0; }},
    {"no renderer", goodSource, [](FakeRenderer&) { EngineServices::installRenderer(nullptr); }},
};

TEST(Picture, CountsNoUseThatFailed) {
    for (const AcquireFault& fault : kAcquireFaults) {
        SCOPED_TRACE(fault.what);
        FakeRenderer renderer;
        fault.breakRenderer(renderer);
        Picture picture(fault.source());
        EXPECT_FALSE(picture.acquire());
        EXPECT_FALSE(picture.acquire()) << "the next one tries again";
        EXPECT_NE(picture.fault(), "");
        EXPECT_FALSE(picture.isAcquired());
        EXPECT_EQ(picture.texture(), nullptr);
        EXPECT_TRUE(renderer.textures.empty());
        picture.draw(renderer, {1, 2}, 1.0f);
        EXPECT_TRUE(renderer.drawn.empty());
    }
}

TEST(Picture, ShowsWhatADamagedImageHoldsAndSaysSo) {
    FakeRenderer renderer;
    Bytes file = writeGif(2, 2, {0, 1, 1, 0}, kRgb);
    Picture whole(bufferOf(file));
    EXPECT_TRUE(whole.acquire());
    EXPECT_EQ(whole.fault(), "");
    file.erase(file.end() - 4, file.end());  // the last codes, the end of the data, the trailer
    Picture cut(bufferOf(file));
    EXPECT_TRUE(cut.acquire());
    EXPECT_EQ(cut.fault(), "GIF: the image data ends before the picture is full");
}

TEST(Picture, ForgetsAllUsesWhenItIsReset) {
    FakeRenderer renderer;
    Picture picture(goodSource());
    picture.setColourKey(kBrown);
    ASSERT_TRUE(picture.acquire() && picture.acquire());
    EXPECT_TRUE(picture.reset(bufferOf(writeBmp(1, 3, Bytes(9, 5))), TextureTransform::Rotate180));
    EXPECT_FALSE(picture.isAcquired());
    EXPECT_TRUE(renderer.textures.empty());
    EXPECT_EQ(picture.width(), 1);
    EXPECT_EQ(picture.height(), 3);
    ASSERT_TRUE(picture.acquire());
    EXPECT_EQ(renderer.textures[0]->uploadedTransform, TextureTransform::Rotate180);
    EXPECT_EQ(renderer.textures[0]->keys, std::vector{kBrown}) << "the colour key stays";
}

TEST(Picture, KeepsTheOldImageWhenResetToNothing) {
    FakeRenderer renderer;
    Picture picture(goodSource());
    ASSERT_TRUE(picture.acquire());
    EXPECT_FALSE(picture.reset({}, kIdentity));
    EXPECT_TRUE(picture.isAcquired());
    EXPECT_EQ(picture.width(), 2);
    EXPECT_EQ(picture.texture(), renderer.textures.at(0));
}

TEST(Picture, SetsItsColourKeyBeforeTheUpload) {
    FakeRenderer renderer;
    Picture picture(goodSource());
    ASSERT_TRUE(picture.acquire());
    EXPECT_TRUE(renderer.textures[0]->keys.empty()) << "none was set";
    picture.setColourKey(kBlue);
    EXPECT_EQ(renderer.textures[0]->keys, std::vector{kBlue}) << "a texture that exists is told";
    EXPECT_EQ(renderer.textures[0]->keysBeforeUpload, 0u) << "but not uploaded again";
    picture.release();
    ASSERT_TRUE(picture.acquire());
    EXPECT_EQ(renderer.textures[0]->keysBeforeUpload, 1u);
}

TEST(Picture, DrawsItsTextureWhereItIsTold) {
    FakeRenderer renderer;
    Picture picture(goodSource());
    ASSERT_TRUE(picture.acquire());
    picture.draw(renderer, {-7, 300}, 0.5f);
    ASSERT_EQ(renderer.drawn.size(), 1u);
    EXPECT_EQ(renderer.drawn[0].x, -7);
    EXPECT_EQ(renderer.drawn[0].y, 300);
    EXPECT_EQ(renderer.drawn[0].texture, renderer.textures[0]);
    EXPECT_EQ(renderer.drawn[0].opacity, 0.5f);
}

}  // namespace
}  // namespace grub
