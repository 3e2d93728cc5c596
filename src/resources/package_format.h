#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace grub {

/// The bytes 78 19 at the start of every package.
inline constexpr std::uint16_t kPackageMagic = 0x1978;
/// Bytes before the directory: magic, directory size, entry count, 16 bits each.
inline constexpr std::uint32_t kPackageHeaderSize = 6;
/// A smaller directory makes a file no package.
inline constexpr std::uint16_t kSmallestDirectorySize = 8;
/// A directory entry costs this beside the characters of its name: NUL, size, offset.
inline constexpr std::uint32_t kEntryOverhead = 9;

/// The start of a package file.
struct PackageHeader {
    std::uint16_t directorySize = 0;
    std::uint16_t entryCount = 0;
};

/// Where a resource lies: bytes, and bytes from the start of the file.
struct PackageExtent {
    std::uint32_t size = 0;
    std::uint32_t offset = 0;
};

/// One entry as the directory has it; the name points into the directory's bytes.
struct PackageEntry {
    std::string_view name;
    PackageExtent extent;
};

/// Nothing when the bytes do not start a package.
[[nodiscard]] std::optional<PackageHeader> readPackageHeader(std::span<const std::uint8_t> bytes);

/// The entries in their order. Stops at `entryCount`, or before the first entry that the directory does not hold whole.
[[nodiscard]] std::vector<PackageEntry> readPackageDirectory(std::span<const std::uint8_t> directory,
                                                             std::uint16_t entryCount);

}  // namespace grub
