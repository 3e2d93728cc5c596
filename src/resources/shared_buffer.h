#pragma once

#include <atomic>
#include <cstdint>
#include <span>

namespace grub {

/// A reference-counted block of bytes, in which resource data travels. Copies share the bytes and cost an atomic
/// increment; different threads may use different copies. Do not write the bytes once they are shared.
class SharedBuffer {
public:
    /// The empty buffer.
    SharedBuffer() = default;
    /// `size` bytes of unknown content; the empty buffer when there is no memory. A buffer of size 0 is not the empty
    /// buffer: it stands for a resource without bytes.
    [[nodiscard]] static SharedBuffer create(std::uint32_t size);
    /// A view of bytes that the caller owns and that must outlive every copy. Not empty unless `data` is null.
    [[nodiscard]] static SharedBuffer view(const std::uint8_t* data, std::uint32_t size);

    SharedBuffer(const SharedBuffer& other) noexcept;
    SharedBuffer(SharedBuffer&& other) noexcept;
    SharedBuffer& operator=(SharedBuffer other) noexcept;
    ~SharedBuffer() { release(); }

    /// Becomes the empty buffer. The last copy frees the bytes.
    void release() noexcept;

    /// Null only in the empty buffer.
    [[nodiscard]] const std::uint8_t* data() const { return data_; }
    /// For filling a buffer after `create`. Null in a view.
    [[nodiscard]] std::uint8_t* writableData() { return count_ != nullptr ? data_ : nullptr; }
    [[nodiscard]] std::uint32_t size() const { return size_; }
    /// Whether the data pointer is null. A buffer of size 0 can have data: code that needs bytes must check the size.
    [[nodiscard]] bool empty() const { return data_ == nullptr; }
    /// Valid as long as one copy lives.
    [[nodiscard]] std::span<const std::uint8_t> bytes() const { return {data_, size_}; }

private:
    std::atomic<std::int32_t>* count_ = nullptr;
    std::uint8_t* data_ = nullptr;
    std::uint32_t size_ = 0;
};

}  // namespace grub
