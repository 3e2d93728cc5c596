#include "shared_buffer.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>

namespace grub {
namespace {

TEST(SharedBufferEmptiness, MeansNoDataAndNotNoBytes) {
    const SharedBuffer missing;
    EXPECT_TRUE(missing.empty());
    EXPECT_EQ(missing.size(), 0u);

    const SharedBuffer withoutBytes = SharedBuffer::create(0);
    EXPECT_FALSE(withoutBytes.empty());
    EXPECT_EQ(withoutBytes.size(), 0u);
    EXPECT_NE(withoutBytes.data(), nullptr);
}

TEST(SharedBufferCopies, ShareTheBytesUntilTheLastOneGoes) {
    SharedBuffer first = SharedBuffer::create(3);
    first.writableData()[2] = 7;
    const std::uint8_t* const data = first.data();
    SharedBuffer second = first;
    SharedBuffer third;
    third = second;
    first.release();
    second.release();
    EXPECT_TRUE(first.empty());
    ASSERT_EQ(third.data(), data);
    EXPECT_EQ(third.bytes()[2], 7);
    const SharedBuffer moved = std::move(third);
    EXPECT_EQ(moved.data(), data);
}

TEST(SharedBufferRelease, MayBeRepeated) {
    SharedBuffer buffer = SharedBuffer::create(1);
    buffer.release();
    buffer.release();
    EXPECT_TRUE(buffer.empty());
}

TEST(SharedBufferAssignment, OfABufferToItselfKeepsIt) {
    SharedBuffer buffer = SharedBuffer::create(4);
    const SharedBuffer& itself = buffer;
    buffer = itself;
    EXPECT_EQ(buffer.size(), 4u);
    EXPECT_FALSE(buffer.empty());
}

TEST(SharedBufferView, OwnsNothing) {
    SharedBuffer owner = SharedBuffer::create(2);
    owner.writableData()[0] = 5;
    SharedBuffer view = SharedBuffer::view(owner.data(), owner.size());
    SharedBuffer copy = view;
    EXPECT_FALSE(view.empty());
    EXPECT_EQ(view.writableData(), nullptr);
    view.release();
    copy.release();
    EXPECT_EQ(owner.bytes()[0], 5);
}

TEST(SharedBufferCopies, MayComeAndGoInSeveralThreads) {
    constexpr int kRounds = 20000;
    SharedBuffer shared = SharedBuffer::create(1);
    shared.writableData()[0] = 9;
    int sums[2] = {0, 0};
    const auto copyOften = [copy = shared](int& sum) {
        for (int i = 0; i < kRounds; ++i) {
            SharedBuffer another;
            another = copy;
            sum += another.bytes()[0];
        }
    };
    std::thread one(copyOften, std::ref(sums[0]));
    std::thread two(copyOften, std::ref(sums[1]));
    shared.release();
    one.join();
    two.join();
    EXPECT_EQ(sums[0], 9 * kRounds);
    EXPECT_EQ(sums[1], 9 * kRounds);
}

}  // namespace
}  // namespace grub
