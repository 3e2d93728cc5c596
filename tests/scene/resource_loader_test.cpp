#include "resource_loader.h"

#include <gtest/gtest.h>

#include <vector>

namespace grub {
namespace {

TEST(ResourceLoader, RunsTheStepsInOrderAndIsIdleBeforeAndAfter) {
    ResourceLoader loader;
    EXPECT_TRUE(loader.wait(0));
    std::vector<int> steps;
    loader.start([&](int step) { steps.push_back(step); });
    ASSERT_TRUE(loader.wait(INFINITE));
    EXPECT_EQ(steps, (std::vector{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_TRUE(loader.isComplete());
}

TEST(ResourceLoader, WaitsForTheStepItIsInWhenItIsTold) {
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
    EXPECT_FALSE(loader.isComplete());
}

TEST(ResourceLoader, NothingIsLoadedAfterAStopHasBeenWaitedFor) {
    for (int round = 0; round < 1000; ++round) {
        int loaded = 0;  // no atomic: the wait must order the loader's last write before the reading
        ResourceLoader loader;
        loader.start([&](int) { ++loaded; });
        loader.requestStop();
        ASSERT_TRUE(loader.wait(INFINITE));
        const int seen = loaded;
        ASSERT_EQ(seen, loader.progress());
        ASSERT_EQ(loaded, seen);
    }
}

TEST(ResourceLoader, ASecondPassStartsFromTheBeginning) {
    ResourceLoader loader;
    loader.start([](int) {});
    loader.wait(INFINITE);
    loader.forgetProgress();
    EXPECT_EQ(loader.progress(), 0);
    int steps = 0;
    loader.start([&](int) { ++steps; });
    loader.wait(INFINITE);
    EXPECT_EQ(steps, kLoadingSteps);
    EXPECT_TRUE(loader.isComplete());
}

}  // namespace
}  // namespace grub
