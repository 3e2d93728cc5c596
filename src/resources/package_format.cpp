#include "package_format.h"

#include "byte_reader.h"

namespace grub {

std::optional<PackageHeader> readPackageHeader(std::span<const std::uint8_t> bytes) {
    ByteReader reader(bytes);
    const std::uint16_t magic = reader.u16();
    const PackageHeader header{.directorySize = reader.u16(), .entryCount = reader.u16()};
    if (!reader.ok() || magic != kPackageMagic || header.directorySize < kSmallestDirectorySize) return std::nullopt;
    return header;
}

std::vector<PackageEntry> readPackageDirectory(std::span<const std::uint8_t> directory, std::uint16_t entryCount) {
    std::vector<PackageEntry> entries;
    ByteReader reader(directory);
    for (std::uint32_t i = 0; i < entryCount; ++i) {
        PackageEntry entry;
        entry.name = reader.cString();
        entry.extent.size = reader.u32();
        entry.extent.offset = reader.u32();
        if (!reader.ok()) break;
        entries.push_back(entry);
    }
    return entries;
}

}  // namespace grub
