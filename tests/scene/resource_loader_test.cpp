#include "resource_loader.h"

#include <gtest/gtest.h>

#include <vector>

namespace grub {
namespace {

TEST(ResourceLoader, EachPassRunsTheStepsInOrder) {
    ResourceLoader loader;
    EXPECT_TRUE(loader.wait(0));
    for (int pass = 0; pass < 2; ++pass) {
        loader.forgetProgress();
        EXPECT_EQ(loader.progress(), 0);
        std::vector<int> steps;
        loader.start([&](int step) { steps.push_back(step); });
        ASSERT_TRUE(loader.wait(INFINITE));
        EXPECT_EQ(steps, (std::vector{0, 1, 2, 3, 4, 5, 6, 7}));
        EXPECT_TRUE(loader.isComplete());
    }
}

TEST(ResourceLoader, AStopEndsThePassAfterTheStepItIsIn) {
    ResourceLoader loader;
    Event inStep{true, false};
    Event goOn{true, false};
    loader.start([&](int) {
        inStep.set();
        goOn.wait(INFINITE);
    });
    ASSERT_TRUE(inStep.wait(INFINITE));
    loader.requestStop();
    EXPECT_FALSE(loader.wait(0));
    goOn.set();
    ASSERT_TRUE(loader.wait(INFINITE));
    EXPECT_EQ(loader.progress(), 1);
}

TEST(ResourceLoader, NothingIsLoadedAfterAStopHasBeenWaitedFor) {
    for (int round = 0; round < 1000; ++round) {
        int loaded = 0;  // no atomic: the wait must order the loader's last write before the reading
        ResourceLoader loader;
        loader.start([&](int) { ++loaded; });
        loader.requestStop();
        ASSERT_TRUE(loader.wait(INFINITE));
        ASSERT_EQ(loaded, loader.progress());
    }
}

}  // namespace
}  // namespace grub
