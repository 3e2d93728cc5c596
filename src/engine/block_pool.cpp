#include "block_pool.h"

#include <algorithm>
#include <mutex>

namespace grub {

struct BlockPool::Extent {
    Extent* next;
    std::size_t size;  // bytes
};

struct alignas(std::max_align_t) BlockPool::Chunk {
    Chunk* next;
};

namespace {

constexpr std::size_t kSlotsPerChunk = 32;
constexpr std::size_t kAlignment = alignof(std::max_align_t);

constexpr std::size_t roundedUp(std::size_t size) { return (size + kAlignment - 1) / kAlignment * kAlignment; }

void* allocateWithOneRetry(std::size_t size) noexcept {
    void* const memory = ::operator new(size, std::nothrow);
    return memory ? memory : ::operator new(size, std::nothrow);
}

}  // namespace

BlockPool::BlockPool(std::size_t blockSize) : slotSize_(roundedUp(std::max(blockSize, sizeof(Extent)))) {}

BlockPool::~BlockPool() {
    while (chunks_) {
        Chunk* const chunk = chunks_;
        chunks_ = chunk->next;
        ::operator delete(chunk);
    }
}

bool BlockPool::grow() noexcept {
    const std::size_t size = kSlotsPerChunk * slotSize_;
    void* const memory = allocateWithOneRetry(sizeof(Chunk) + size);
    if (!memory) return false;
    chunks_ = new (memory) Chunk{chunks_};
    extents_ = new (chunks_ + 1) Extent{nullptr, size};
    return true;
}

void* BlockPool::allocate() noexcept {
    const std::lock_guard guard(lock_);
    if (!extents_ && !grow()) return nullptr;
    Extent* const first = extents_;
    if (first->size >= 2 * slotSize_) {
        void* const rest = reinterpret_cast<std::byte*>(first) + slotSize_;
        extents_ = new (rest) Extent{first->next, first->size - slotSize_};
    } else {
        extents_ = first->next;
    }
    return first;
}

void BlockPool::free(void* block) noexcept {
    if (!block) return;
    const std::lock_guard guard(lock_);
    extents_ = new (block) Extent{extents_, slotSize_};
}

}  // namespace grub
