#pragma once

#include <cstdint>
#include <string_view>

namespace grub {

/// The hash by which packages and INI tables spread names over buckets. Bytes from 128 up count as negative numbers;
/// everything wraps in 32 bits.
[[nodiscard]] constexpr std::uint32_t stringHash(std::string_view name) {
    std::uint32_t hash = 0;
    std::uint32_t multiplier = 31415;
    for (const char character : name) {
        hash = multiplier * hash + static_cast<std::uint32_t>(static_cast<std::int8_t>(character));
        multiplier *= 27183;
    }
    return hash;
}

/// The bucket of `name` among `bucketCount` buckets, which must not be 0.
[[nodiscard]] constexpr std::uint32_t bucketOf(std::string_view name, std::uint32_t bucketCount) {
    return stringHash(name) % bucketCount;
}

}  // namespace grub
