#include "refusing_heap.h"

#include <cstddef>
#include <new>

namespace {

thread_local int refusalsLeft = 0;

}  // namespace

// Replaces the one of the standard library in this program.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (refusalsLeft > 0) {
        --refusalsLeft;
        return nullptr;
    }
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace grub {

RefusingHeap::RefusingHeap(int refusals) : refusals_(refusals) { refusalsLeft = refusals; }
bool RefusingHeap::hasRefused() const { return refusalsLeft < refusals_; }
RefusingHeap::~RefusingHeap() { refusalsLeft = 0; }

}  // namespace grub
