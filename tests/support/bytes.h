#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "resource_source.h"

namespace grub {

/// A file, pixels or samples in a test.
using Bytes = std::vector<std::uint8_t>;

/// A copy of the bytes in a block of exactly their size, so that a sanitizer sees any read beyond it.
[[nodiscard]] inline SharedBuffer bufferOf(std::span<const std::uint8_t> bytes) {
    SharedBuffer buffer = SharedBuffer::create(static_cast<std::uint32_t>(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), buffer.writableData());
    return buffer;
}

/// The bytes of a buffer, for comparing and printing.
[[nodiscard]] inline Bytes bytesOf(const SharedBuffer& buffer) {
    return Bytes(buffer.bytes().begin(), buffer.bytes().end());
}

/// The characters of `text`, without a NUL.
[[nodiscard]] inline Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

/// `count` bytes below `limit`; the same for the same seed.
[[nodiscard]] inline Bytes noise(std::size_t count, unsigned limit, unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes(count);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() % limit);
    return bytes;
}

/// Appends `value` in `byteCount` bytes, lowest first.
inline void append(Bytes& bytes, std::uint32_t value, unsigned byteCount) {
    for (; byteCount > 0; --byteCount, value >>= 8) bytes.push_back(static_cast<std::uint8_t>(value));
}

/// Appends numbers, each with the count of its bytes.
inline void append(Bytes& bytes, std::initializer_list<std::pair<std::size_t, unsigned>> fields) {
    for (const auto& [value, byteCount] : fields) append(bytes, static_cast<std::uint32_t>(value), byteCount);
}

/// Writes `value` in `byteCount` bytes, lowest first, at `offset`: for tests that damage one field.
inline void put(Bytes& bytes, std::size_t offset, std::uint32_t value, unsigned byteCount) {
    for (; byteCount > 0; --byteCount, value >>= 8) bytes.at(offset++) = static_cast<std::uint8_t>(value);
}

}  // namespace grub
