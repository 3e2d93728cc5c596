#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace grub {

/// The bytes that tests write, damage and compare.
using Bytes = std::vector<std::uint8_t>;

/// The characters of `text`, without a NUL.
[[nodiscard]] Bytes bytesOf(std::string_view text);

/// Builds a good package in memory: entries and their data in the order of `add`. It checks nothing, so that a test can
/// also add equal names, or names that no tool would write.
class PackageWriter {
public:
    PackageWriter& add(std::string_view name, Bytes data);
    [[nodiscard]] Bytes package() const;

private:
    struct Entry {
        std::string name;
        Bytes data;
    };
    std::vector<Entry> entries_;
};

/// Writes `value` into `byteCount` bytes at `offset`, lowest byte first, to damage one field.
void put(Bytes& bytes, std::size_t offset, std::uint32_t value, unsigned byteCount);

}  // namespace grub
