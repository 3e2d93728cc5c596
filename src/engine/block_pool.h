#pragma once

#include <cstddef>
#include <new>

#include "system_objects.h"

namespace grub {

/// Memory for many small objects of one size. A pool grows by chunks of 32 slots and keeps them until it is destroyed.
/// Any thread may allocate and free. Blocks are aligned for every ordinary type.
class BlockPool {
public:
    /// Allocates nothing yet. A slot has `blockSize` bytes, rounded up for the alignment and for an entry of the list
    /// of free slots.
    explicit BlockPool(std::size_t blockSize);
    BlockPool(const BlockPool&) = delete;
    BlockPool& operator=(const BlockPool&) = delete;
    /// Frees the chunks: no block may be in use.
    ~BlockPool();

    /// Returns uninitialised memory, or null when the heap has refused a new chunk twice.
    [[nodiscard]] void* allocate() noexcept;
    /// Takes back a block of this pool. Ignores null.
    void free(void* block) noexcept;

private:
    struct Extent;  // free memory of one or more slots
    struct Chunk;   // heads 32 slots

    bool grow() noexcept;

    const std::size_t slotSize_;
    CriticalSection lock_;
    Extent* extents_ = nullptr;
    Chunk* chunks_ = nullptr;
};

/// Gives T a pool of the process: `new T` takes a block (null when there is no memory), `delete` returns it. A larger
/// class derived from T comes from the heap, unless it is PoolAllocated too; it then says with using-declarations which
/// of the two inherited pairs of operators it means.
template <class T>
struct PoolAllocated {
    static void* operator new(std::size_t size) noexcept {
        return size == sizeof(T) ? pool().allocate() : ::operator new(size, std::nothrow);
    }
    static void operator delete(void* block, std::size_t size) noexcept {
        size == sizeof(T) ? pool().free(block) : ::operator delete(block);
    }

private:
    // Never destroyed: the last objects may die after every static object.
    static BlockPool& pool() {
        static BlockPool& instance = *new BlockPool(sizeof(T));
        return instance;
    }
};

}  // namespace grub
