#include "scene_message.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace grub {
namespace {

struct Counted {
    explicit Counted(std::atomic<int>& living) : living_(living) { ++living_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    virtual ~Counted() { --living_; }

private:
    std::atomic<int>& living_;
};

struct Derived final : Counted {
    using Counted::Counted;
};

TEST(SharedRef, TheLastHandleDestroysTheObject) {
    std::atomic<int> living = 0;
    SharedRef<Counted> first(new Counted(living));
    SharedRef<Counted> second = first;
    first = SharedRef<Counted>();
    EXPECT_EQ(living, 1);
    second = SharedRef<Counted>();
    EXPECT_EQ(living, 0);
}

TEST(SharedRef, CountsTheSameObjectThroughItsBase) {
    std::atomic<int> living = 0;
    SharedRef<Counted> base;
    {
        const SharedRef<Derived> derived(new Derived(living));
        base = derived;
        EXPECT_EQ(base.get(), derived.get());
    }
    EXPECT_EQ(living, 1);
    base = SharedRef<Counted>();
    EXPECT_EQ(living, 0);
}

TEST(SharedRef, MovingLeavesAnEmptyHandle) {
    std::atomic<int> living = 0;
    SharedRef<Counted> first(new Counted(living));
    const SharedRef<Counted> second = std::move(first);
    EXPECT_FALSE(first);  // NOLINT(bugprone-use-after-move): this is the question
    EXPECT_TRUE(second);
    EXPECT_EQ(living, 1);
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the analyzer does not follow the atomic count

TEST(SharedRef, HandlesMayBeCopiedAndDroppedOnSeveralThreads) {
    std::atomic<int> living = 0;
    {
        const SharedRef<Counted> shared(new Counted(living));
        const auto copyOften = [own = shared] {
            for (int i = 0; i < 5000; ++i) SharedRef<Counted>{own};
        };
        std::thread one(copyOften);
        std::thread other(copyOften);
        one.join();
        other.join();
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

}  // namespace
}  // namespace grub
