#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace grub {

/// Reads little-endian numbers from bytes that come from outside and that it does not own. Past the end it gives 0 or
/// an empty span, and `ok()` is false for good. A parser reads a whole record, then asks `ok()` once.
class ByteReader {
public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    /// Whether the bytes held everything that was read so far.
    [[nodiscard]] bool ok() const { return ok_; }
    /// Bytes not yet read.
    [[nodiscard]] std::size_t remaining() const { return rest_.size(); }

    /// The next `count` bytes.
    std::span<const std::uint8_t> take(std::size_t count) {
        if (!ok_ || count > rest_.size()) {  // compared, not added: a huge count cannot wrap around
            ok_ = false;
            return {};
        }
        const auto head = rest_.first(count);
        rest_ = rest_.subspan(count);
        return head;
    }
    void skip(std::size_t count) { take(count); }

    /// The next number of this many bits; signed numbers are stored as two's complement.
    std::uint8_t u8() { return static_cast<std::uint8_t>(number(1)); }
    std::uint16_t u16() { return static_cast<std::uint16_t>(number(2)); }
    std::uint32_t u32() { return number(4); }
    std::int8_t i8() { return static_cast<std::int8_t>(number(1)); }
    std::int16_t i16() { return static_cast<std::int16_t>(number(2)); }
    std::int32_t i32() { return static_cast<std::int32_t>(number(4)); }

    /// The bytes before the next NUL; reads the NUL too. Without a NUL: empty, and a failure.
    std::string_view cString() {
        const auto end = std::find(rest_.begin(), rest_.end(), std::uint8_t{0});
        const auto text = take(static_cast<std::size_t>(end - rest_.begin()));
        skip(1);
        return ok_ ? std::string_view(reinterpret_cast<const char*>(text.data()), text.size()) : std::string_view();
    }

private:
    std::uint32_t number(std::size_t byteCount) {
        std::uint32_t value = 0;
        unsigned shift = 0;
        for (const std::uint8_t byte : take(byteCount)) {
            value |= static_cast<std::uint32_t>(byte) << shift;
            shift += 8;
        }
        return value;
    }

    std::span<const std::uint8_t> rest_;
    bool ok_ = true;
};

}  // namespace grub
