#pragma once

#include <cstddef>
#include <new>

#include "system_objects.h"

namespace grub {

/// Memory for many small objects of one size. It grows by chunks of 32 slots and keeps them until it is destroyed.
/// Any thread may allocate and free. Blocks are aligned for every ordinary type.
class BlockPool {
public:
    /// Nothing is allocated yet. A slot has `blockSize` bytes, rounded up so that it can hold a free-list entry.
    explicit BlockPool(std::size_t blockSize);
    BlockPool(const BlockPool&) = delete;
    BlockPool& operator=(const BlockPool&) = delete;
    /// Frees the chunks, so no block may be in use any more.
    ~BlockPool();

    /// A block of uninitialised memory, or null when the heap refused a new chunk twice.
    [[nodiscard]] void* allocate() noexcept;
    /// Takes back a block of this pool; null is ignored.
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

/// Gives T a process-wide pool: `new T` takes a block (or yields null when there is none), `delete` returns it. A class
/// derived from T that is larger comes from the heap, unless it is PoolAllocated itself and names which of the two
/// inherited `operator new` and `operator delete` it means with using-declarations.
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
