#include "loading_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace grub {
namespace {

auto count(auto predicate) { return std::ranges::count_if(loadingList(), predicate); }

const LoadEntry& entry(int id) { return *std::ranges::find(loadingList(), id, &LoadEntry::id); }

TEST(LoadingList, HoldsWhatItsSummaryCounts) {
    EXPECT_EQ(loadingList().size(), 309U);
    EXPECT_EQ(count([](const LoadEntry& e) { return e.colourKey == kBlue; }), 183);
    EXPECT_EQ(count([](const LoadEntry& e) { return e.colourKey == kBrown; }), 125);
    EXPECT_EQ(count([](const LoadEntry& e) { return e.kind == LoadEntry::Kind::Block; }), 242);
    EXPECT_EQ(count([](const LoadEntry& e) { return e.kind == LoadEntry::Kind::Strip && e.frameHeight == 64; }), 62);
    EXPECT_EQ(count([](const LoadEntry& e) { return e.transform == TextureTransform::FlipHorizontal; }), 16);
    EXPECT_EQ(count([](const LoadEntry& e) { return e.kind == LoadEntry::Kind::Strip && e.frameHeight != 64; }), 5);

    std::set<std::string> files;
    for (const LoadEntry& e : loadingList()) files.insert(e.path());
    EXPECT_EQ(files.size(), 285U);
}

TEST(LoadingList, IsCutIntoTwoListsOfEightSteps) {
    std::size_t first = 0;
    std::size_t second = 0;
    for (int step = 0; step < kLoadingSteps; ++step) {
        first += loadingStep(0, step).size();
        second += loadingStep(1, step).size();
    }
    EXPECT_EQ(first, 243U);
    EXPECT_EQ(second, 66U);
    EXPECT_EQ(loadingStep(0, 0).front().id, 0);
    EXPECT_EQ(loadingStep(0, 1).front().id, 42);
    EXPECT_EQ(loadingStep(0, 7).back().id, 334);
    EXPECT_EQ(loadingStep(1, 0).front().id, 90);
    EXPECT_EQ(loadingStep(1, 7).back().id, 317);
}

TEST(LoadingList, NamesFilesKeysAndTwins) {
    EXPECT_EQ(entry(1).path(), "data\\gif\\grub\\ani_01.bmp");
    EXPECT_EQ(entry(76).path(), entry(1).path());
    EXPECT_EQ(entry(76).transform, TextureTransform::FlipHorizontal);
    EXPECT_EQ(entry(6).frameHeight, 20);
    EXPECT_EQ(entry(116).frameHeight, 10);
    EXPECT_EQ(entry(117).frameHeight, 14);
    EXPECT_EQ(entry(117).colourKey, (Colour{67, 99, 99}));
    EXPECT_EQ(entry(135).frameHeight, 240);
    EXPECT_EQ(entry(193).spriteNumber, 175);
    EXPECT_EQ(entry(257).spriteNumber, 294);
    EXPECT_EQ(entry(90).spriteNumber, kNoSpriteNumber);
}

}  // namespace
}  // namespace grub
