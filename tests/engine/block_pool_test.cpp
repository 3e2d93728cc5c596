#include "block_pool.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <thread>
#include <vector>

#include "recording_scene.h"

namespace {

thread_local int refusals = 0;  // so many of the thread's next requests get no memory

}  // namespace

// Replaces the one of the standard library in this program.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (refusals > 0 && refusals--) return nullptr;
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace grub {
namespace {

// Sizes that need rounding: a free slot holds a list entry, and each slot is aligned for every ordinary type.
TEST(BlockPool, BlocksOfAnySizeAreAlignedAndKeepTheirBytesApart) {
    for (const std::size_t size : {1, 20, 48}) {
        BlockPool pool(size);
        std::vector<void*> blocks;
        for (int i = 0; i < 100; ++i) {  // more than three chunks
            blocks.push_back(pool.allocate());
            ASSERT_EQ(reinterpret_cast<std::uintptr_t>(blocks.back()) % alignof(std::max_align_t), 0U) << size;
            std::memset(blocks.back(), i, size);
        }
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            const auto* const bytes = static_cast<const std::uint8_t*>(blocks[i]);
            EXPECT_EQ(bytes[0], i) << size;
            EXPECT_EQ(bytes[size - 1], i) << size;
        }
        for (void* const block : blocks) pool.free(block);
        EXPECT_TRUE(pool.allocate() == blocks.back()) << "the block that came back last is taken first";
    }
}

TEST(BlockPool, AsksTheHeapTwiceBeforeItGivesUp) {
    BlockPool pool(48);
    refusals = 2;
    EXPECT_EQ(pool.allocate(), nullptr);
    refusals = 1;
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

TEST(PoolAllocated, ALargerDescendantDoesNotOverrunThePool) {
    const std::unique_ptr<Small> before(new Small);
    const std::unique_ptr<Small> larger(new Larger);
    const std::unique_ptr<Small> after(new Small);
    static_cast<Larger&>(*larger).more.fill(~std::uint64_t{0});
    EXPECT_EQ(before->value, 0U);
    EXPECT_EQ(after->value, 0U);
}

TEST(SceneQueue, WithoutMemoryAMessageIsDroppedButTheSceneWakes) {
    RecordingScene scene;
    RecordingScene hoarder;  // takes the free entries that other tests have left in the pool
    const auto message = messageOf(MessageType::Pressed);
    refusals = 2;
    std::size_t posts = 0;
    for (; refusals > 0; ++posts) hoarder.post(message);
    refusals = 2;
    scene.post(message);
    EXPECT_TRUE(scene.waitForMessages(0));
    scene.processMessages();
    EXPECT_TRUE(scene.messages.empty());
    hoarder.processMessages();
    EXPECT_EQ(hoarder.messages.size(), posts - 1);
}

}  // namespace
}  // namespace grub
