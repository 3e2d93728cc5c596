#pragma once

#include <atomic>
#include <cstdint>
#include <span>

namespace grub {

/// A reference-counted block of bytes: what resource data travels in. Copies share the bytes and are as cheap as an
/// atomic increment; different copies may be used by different threads. Nobody writes the bytes once they are shared.
class SharedBuffer {
public:
    /// The empty buffer.
    SharedBuffer() = default;
    /// `size` bytes of unknown content; the empty buffer when there is no memory. Size 0 is not the empty buffer: it
    /// stands for a resource that is there and has no bytes.
    [[nodiscard]] static SharedBuffer create(std::uint32_t size);
    /// Bytes that somebody else owns and that must outlive every copy. Not empty unless `data` is null.
    [[nodiscard]] static SharedBuffer view(const std::uint8_t* data, std::uint32_t size);

    SharedBuffer(const SharedBuffer& other) noexcept;
    SharedBuffer(SharedBuffer&& other) noexcept;
    SharedBuffer& operator=(SharedBuffer other) noexcept;
    ~SharedBuffer() { release(); }

    /// Becomes the empty buffer; the last copy to go frees the bytes.
    void release() noexcept;

    /// Null only in the empty buffer.
    [[nodiscard]] const std::uint8_t* data() const { return data_; }
    /// For whoever fills a buffer it has just created. Null in a view.
    [[nodiscard]] std::uint8_t* writableData() { return count_ != nullptr ? data_ : nullptr; }
    /// In bytes.
    [[nodiscard]] std::uint32_t size() const { return size_; }
    /// Whether there is no data at all. A buffer of size 0 with data is not empty: who needs bytes must test the size.
    [[nodiscard]] bool empty() const { return data_ == nullptr; }
    /// The bytes; valid as long as one copy lives.
    [[nodiscard]] std::span<const std::uint8_t> bytes() const { return {data_, size_}; }

private:
    std::atomic<std::int32_t>* count_ = nullptr;
    std::uint8_t* data_ = nullptr;
    std::uint32_t size_ = 0;
};

}  // namespace grub
