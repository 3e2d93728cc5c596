#include "animation_table.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <thread>

#include "bmp_writer.h"
#include "fake_renderer.h"
#include "memory_source.h"
#include "scratch_directory.h"

namespace grub {
namespace {

// A strip of `frames` frames, 64 x 64 each.
Bytes stripFile(unsigned frames) { return writeBmp(64, 64 * frames, Bytes(std::size_t{64} * 64 * frames * 3, 7)); }

SharedBuffer bufferOf(const Bytes& bytes) {
    SharedBuffer buffer = SharedBuffer::create(static_cast<std::uint32_t>(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), buffer.writableData());
    return buffer;
}

class AnimationTableTest : public ::testing::Test {
protected:
    FakeRenderer renderer_;
    MemorySource source_;
    SpriteNumbers numbers_;
    AnimationTable table_{source_, numbers_};
};

TEST_F(AnimationTableTest, AFileBecomesAStripWithItsTexturesKeyAndTransform) {
    source_.put("walk.bmp", stripFile(3));
    EXPECT_TRUE(table_.addAnimationFile("walk.bmp", 76, 64, TextureTransform::FlipHorizontal, kBrown));
    ASSERT_NE(table_.strip(76), nullptr);
    EXPECT_EQ(table_.strip(76)->frameCount(), 3);
    EXPECT_TRUE(table_.strip(76)->isAcquired());
    ASSERT_EQ(renderer_.textures.size(), 3U);
    EXPECT_EQ(renderer_.textures[0]->uploadedTransform, TextureTransform::FlipHorizontal);
    EXPECT_EQ(renderer_.textures[0]->keys, std::vector{kBrown});
    EXPECT_EQ(renderer_.textures[0]->keysBeforeUpload, 1U);
    EXPECT_EQ(table_.count(), 77);
    EXPECT_TRUE(table_.addAnimationFile("walk.bmp", 3, 64, TextureTransform::Identity, kBrown));
    EXPECT_EQ(table_.count(), 77) << "the highest id counts, not the last";
    EXPECT_EQ(table_.frameCounts().of(76), 3);
    EXPECT_EQ(table_.frameCounts().of(75), 0);
}

TEST_F(AnimationTableTest, AMapPictureIsKnownByItsNumber) {
    source_.put("wall.bmp", stripFile(1));
    EXPECT_TRUE(table_.addBlockAnimationFile("wall.bmp", 193, 175, kBlue));
    EXPECT_TRUE(table_.addBlockAnimationImage(bufferOf(stripFile(2)), 194, kNoSpriteNumber, kBlue));
    EXPECT_EQ(numbers_.spriteIdOf(175), 193);
    EXPECT_EQ(table_.strip(193)->frameCount(), 1);
    EXPECT_EQ(table_.strip(194)->frameCount(), 2);
}

TEST_F(AnimationTableTest, OnlyAMissingStripIsRememberedAndAMissingMapPictureAddsNoNumber) {
    EXPECT_FALSE(table_.addBlockAnimationFile("none.bmp", 5, 50, kBlue));
    EXPECT_EQ(table_.missing(), -1);
    EXPECT_EQ(numbers_.spriteIdOf(50), -1);
    EXPECT_FALSE(table_.addAnimationFile("none.bmp", 90, 64, TextureTransform::Identity, kBrown));
    EXPECT_EQ(table_.missing(), 90);
    EXPECT_EQ(table_.strip(90), nullptr);
    EXPECT_EQ(table_.count(), 0);
}

TEST_F(AnimationTableTest, APictureThatCannotBeDecodedShowsNothing) {
    EXPECT_TRUE(table_.addAnimationImage(bufferOf({'n', 'o'}), 1, 64, TextureTransform::Identity, kBrown));
    EXPECT_EQ(table_.frameCounts().of(1), 0);
    EXPECT_FALSE(table_.strip(1)->isAcquired());
}

TEST_F(AnimationTableTest, DamagedPicturesAreNamedInTheLog) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";  // a process of its own, since a process has one log
    const auto addPictures = [this] {
        {
            const ScratchDirectory directory;
            std::filesystem::current_path(directory.path());
            table_.addAnimationImage(bufferOf(stripFile(1)), 6, 64, TextureTransform::Identity, kBrown);
            table_.addAnimationImage(bufferOf({'n', 'o'}), 7, 64, TextureTransform::Identity, kBrown);
            const Bytes log = directory.read("nimbo.log");
            std::fwrite(log.data(), 1, log.size(), stderr);
        }
        std::exit(0);
    };
    EXPECT_EXIT(addPictures(), testing::ExitedWithCode(0), "^The picture of animation 7: neither BMP, GIF nor JPEG\n$");
}

TEST_F(AnimationTableTest, IdsOutsideTheTableAreRefused) {
    for (const int id : {-1, kAnimationSlots, 100000}) {
        EXPECT_FALSE(table_.addAnimationImage(bufferOf(stripFile(1)), id, 64, TextureTransform::Identity, kBrown));
        EXPECT_EQ(table_.strip(id), nullptr);
    }
}

TEST_F(AnimationTableTest, NothingIsAddedWhileLoadingIsStopped) {
    source_.put("walk.bmp", stripFile(1));
    table_.stopLoading(true);
    EXPECT_FALSE(table_.addAnimationFile("walk.bmp", 1, 64, TextureTransform::Identity, kBrown));
    EXPECT_FALSE(table_.addBlockAnimationFile("walk.bmp", 2, 36, kBlue));
    EXPECT_EQ(numbers_.spriteIdOf(36), -1);
    table_.stopLoading(false);
    EXPECT_TRUE(table_.addAnimationFile("walk.bmp", 1, 64, TextureTransform::Identity, kBrown));
}

TEST_F(AnimationTableTest, UsesAreCountedForEveryStripWhateverTheCountSays) {
    source_.put("walk.bmp", stripFile(1));
    table_.addAnimationFile("walk.bmp", 300, 64, TextureTransform::Identity, kBrown);
    table_.forgetCount();
    table_.acquireAll();
    table_.releaseAll();
    EXPECT_TRUE(table_.strip(300)->isAcquired());
    table_.releaseAll();
    EXPECT_FALSE(table_.strip(300)->isAcquired());
    table_.acquireAll();
    EXPECT_TRUE(table_.strip(300)->isAcquired());
}

TEST_F(AnimationTableTest, TheGameThreadMayDrawWhatTheLoaderHasAdded) {
    source_.put("walk.bmp", stripFile(1));
    std::thread loader([this] {
        for (int id = 0; id < kAnimationSlots; ++id)
            table_.addAnimationFile("walk.bmp", id, 64, TextureTransform::Identity, kBrown);
    });
    int seen = 0;
    while (seen < kAnimationSlots) {
        FrameStrip* strip = table_.strip(seen);
        if (!strip) continue;
        ASSERT_EQ(strip->frameCount(), 1);
        strip->acquire();
        strip->setFrame(0);
        ASSERT_NE(strip->texture(), nullptr);
        ++seen;
    }
    loader.join();
    EXPECT_EQ(table_.count(), kAnimationSlots);
}

}  // namespace
}  // namespace grub
