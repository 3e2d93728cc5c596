// The loader thread and the table that it fills.

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "animation_table.h"
#include "bmp_writer.h"
#include "fake_renderer.h"
#include "memory_source.h"
#include "resource_loader.h"

namespace grub {
namespace {

class AnimationTableTest : public ::testing::Test {
protected:
    AnimationTableTest() { source_.put("three.bmp", writeBmp(64, 64 * 3, Bytes(std::size_t{64} * 64 * 3 * 3, 7))); }

    FakeRenderer renderer_;
    MemorySource source_;
    SpriteNumbers numbers_;
    AnimationTable table_{source_, numbers_};
};

TEST_F(AnimationTableTest, AddsStripsAndTheNumbersOfMapStrips) {
    const struct {
        const char* what;
        const char* file;
        int id;
        int number;  // of a map strip; 0: another strip
        bool isStopped, isAdded;
        int frames, missing, count;
    } rows[] = {
        {"a strip", "three.bmp", 76, 0, false, true, 3, -1, 77},
        {"a map strip", "three.bmp", 193, 175, false, true, 3, -1, 194},
        {"a missing map strip", "none.bmp", 194, 176, false, false, 0, -1, 194},
        {"a missing strip is remembered", "none.bmp", 90, 0, false, false, 0, 90, 194},
        {"an id behind the table", "three.bmp", kAnimationSlots, 0, false, false, 0, 90, 194},
        {"while loading is stopped", "three.bmp", 200, 0, true, false, 0, 90, 194},
        {"after that", "three.bmp", 200, 0, false, true, 3, 90, 201},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        table_.stopLoading(row.isStopped);
        EXPECT_EQ(row.number != 0 ? table_.addBlockAnimationFile(row.file, row.id, row.number, kBlue)
                                  : table_.addAnimationFile(row.file, row.id, 64, TextureTransform::Rotate180, kBrown),
                  row.isAdded);
        EXPECT_EQ(table_.strip(row.id) != nullptr, row.isAdded);
        EXPECT_EQ(table_.frameCounts().of(row.id), row.frames);
        EXPECT_EQ(table_.missing(), row.missing);
        EXPECT_EQ(table_.count(), row.count);
        if (row.number == 0) continue;
        EXPECT_EQ(numbers_.spriteIdOf(row.number), row.isAdded ? row.id : SpriteNumbers::kUnknown);
    }
    const FakeTexture& first = *renderer_.textures.front();
    EXPECT_EQ(first.uploadedTransform, TextureTransform::Rotate180);
    EXPECT_EQ(first.keys, std::vector{kBrown});
    EXPECT_EQ(first.keysBeforeUpload, 1U);

    table_.forgetCount();  // uses are counted for every strip, whatever the count says
    table_.acquireAll();
    table_.releaseAll();
    EXPECT_TRUE(table_.strip(200)->isAcquired());
    table_.releaseAll();
    EXPECT_FALSE(table_.strip(200)->isAcquired());
}

TEST(ResourceLoader, NothingIsLoadedAfterAStopHasBeenWaitedFor) {
    int sum = 0;
    for (int round = 0; round < 1000; ++round) {
        int loaded = 0;  // no atomic: the wait must order the loader's last write before the reading
        ResourceLoader loader;
        loader.start([&](int) {
            std::this_thread::sleep_for(std::chrono::microseconds(100));
            ++loaded;
        });
        loader.requestStop();
        loader.wait(INFINITE);
        ASSERT_EQ(loaded, loader.progress());
        sum += loaded;
    }
    EXPECT_LT(sum, 4000) << "a stop right after the start is not lost";
}

}  // namespace
}  // namespace grub
