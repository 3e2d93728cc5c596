#include "resource_source.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace grub {

SharedBuffer SharedBuffer::create(std::uint32_t size) {
    SharedBuffer buffer;
    buffer.count_ = new (std::nothrow) std::atomic<std::int32_t>(1);
    if (buffer.count_ == nullptr) return {};
    // malloc(0) may return null, which would mean "empty". So a buffer of size 0 owns one byte.
    buffer.data_ = static_cast<std::uint8_t*>(std::malloc(size == 0 ? 1 : size));
    if (buffer.data_ == nullptr) return {};
    buffer.size_ = size;
    return buffer;
}

SharedBuffer SharedBuffer::view(const std::uint8_t* data, std::uint32_t size) {
    SharedBuffer buffer;
    buffer.data_ = const_cast<std::uint8_t*>(data);  // without a count, `writableData` gives null
    buffer.size_ = size;
    return buffer;
}

SharedBuffer::SharedBuffer(const SharedBuffer& other) noexcept
    : count_(other.count_), data_(other.data_), size_(other.size_) {
    if (count_ != nullptr) count_->fetch_add(1, std::memory_order_relaxed);
}

SharedBuffer::SharedBuffer(SharedBuffer&& other) noexcept
    : count_(std::exchange(other.count_, nullptr)),
      data_(std::exchange(other.data_, nullptr)),
      size_(std::exchange(other.size_, 0)) {}

SharedBuffer& SharedBuffer::operator=(SharedBuffer other) noexcept {
    std::swap(count_, other.count_);
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    return *this;
}

void SharedBuffer::release() noexcept {
    // Acquire and release: every use of the bytes through another copy happens before they are freed.
    if (count_ != nullptr && count_->fetch_sub(1, std::memory_order_acq_rel) <= 1) {
        std::free(data_);
        delete count_;
    }
    count_ = nullptr;
    data_ = nullptr;
    size_ = 0;
}

}  // namespace grub
