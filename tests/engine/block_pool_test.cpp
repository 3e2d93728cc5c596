#include "block_pool.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

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

}  // namespace
}  // namespace grub
