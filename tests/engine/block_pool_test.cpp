#include "block_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <thread>
#include <vector>

#include "refusing_heap.h"

namespace grub {
namespace {

constexpr std::size_t kBlockSize = 48;

std::byte* bytesAt(void* block) { return static_cast<std::byte*>(block); }

TEST(BlockPool, BlocksOfSeveralChunksKeepTheirBytesApart) {
    BlockPool pool(kBlockSize);
    std::vector<void*> blocks;
    for (int i = 0; i < 100; ++i) {
        blocks.push_back(pool.allocate());
        ASSERT_NE(blocks.back(), nullptr);
        std::memset(blocks.back(), i, kBlockSize);
    }
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const auto* const first = bytesAt(blocks[i]);
        EXPECT_EQ(std::count(first, first + kBlockSize, static_cast<std::byte>(i)), kBlockSize) << "block " << i;
    }
    for (void* const block : blocks) pool.free(block);
}

TEST(BlockPool, AFreshChunkIsHandedOutFromItsStart) {
    BlockPool pool(kBlockSize);
    std::byte* const first = bytesAt(pool.allocate());
    for (std::size_t i = 1; i < 32; ++i) EXPECT_EQ(pool.allocate(), first + i * kBlockSize) << i;
}

TEST(BlockPool, FreedBlocksComeBackLastFirst) {
    BlockPool pool(kBlockSize);
    void* const a = pool.allocate();
    void* const b = pool.allocate();
    pool.free(a);
    pool.free(b);
    EXPECT_TRUE(pool.allocate() == b);  // EXPECT_EQ would print the pointer, which the analyzer holds for dead
    EXPECT_TRUE(pool.allocate() == a);
}

TEST(BlockPool, EvenTheSmallestBlockIsAlignedForEveryType) {
    BlockPool pool(1);
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pool.allocate()) % alignof(std::max_align_t), 0U);
    }
}

TEST(BlockPool, AsksTheHeapTwiceBeforeItGivesUp) {
    BlockPool pool(kBlockSize);
    {
        const RefusingHeap heap(2);
        EXPECT_EQ(pool.allocate(), nullptr);
    }
    const RefusingHeap heap(1);
    EXPECT_NE(pool.allocate(), nullptr);
}

TEST(BlockPool, ServesSeveralThreadsAtOnce) {
    BlockPool pool(sizeof(std::uint64_t));
    std::array<int, 4> damaged{};
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < damaged.size(); ++t) {
        threads.emplace_back([&, t] {
            for (std::uint64_t i = 0; i < 2000; ++i) {
                auto* const number = new (pool.allocate()) std::uint64_t(t << 32 | i);
                auto* const other = new (pool.allocate()) std::uint64_t(0);
                if (*number != (t << 32 | i)) ++damaged[t];
                pool.free(number);
                pool.free(other);
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(damaged, (std::array<int, 4>{}));
}

struct Small : PoolAllocated<Small> {
    virtual ~Small() = default;
    std::uint64_t value = 0;
};

struct Larger final : Small {
    std::array<std::uint64_t, 64> more{};
};

TEST(PoolAllocated, DeletingGivesTheBlockToTheNextNew) {
    auto* const first = new Small;
    delete first;
    const std::unique_ptr<Small> second(new Small);
    EXPECT_EQ(second.get(), first);
}

TEST(PoolAllocated, ALargerDescendantDoesNotOverrunThePool) {
    const std::unique_ptr<Small> before(new Small);
    const std::unique_ptr<Small> larger(new Larger);
    const std::unique_ptr<Small> after(new Small);
    static_cast<Larger&>(*larger).more.fill(~std::uint64_t{0});
    EXPECT_EQ(before->value, 0U);
    EXPECT_EQ(after->value, 0U);
}

}  // namespace
}  // namespace grub
