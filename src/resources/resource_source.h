#pragma once

#include <atomic>
#include <cstdint>
#include <span>

#include "engine_string.h"

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

/// A source of named resources, such as a package.
class ResourceSource {
public:
    virtual ~ResourceSource() = default;
    /// Whether `load` would find `name`. Never shows a message.
    [[nodiscard]] virtual bool exists(const EngineString& name) = 0;
    /// The bytes of `name`; the empty buffer when the source does not know it or cannot read it.
    [[nodiscard]] virtual SharedBuffer load(const EngineString& name) = 0;

protected:
    ResourceSource() = default;
    ResourceSource(const ResourceSource&) = default;
    ResourceSource& operator=(const ResourceSource&) = default;
};

}  // namespace grub
