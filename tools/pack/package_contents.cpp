#include "package_contents.h"

#include <algorithm>

#include "whole_file.h"

namespace grub {

std::optional<std::span<const std::uint8_t>> PackageContents::bytesOf(const PackageEntry& entry) const {
    const auto [size, offset] = entry.extent;
    if (offset > file.size() || size > file.size() - offset) return std::nullopt;
    return std::span(file).subspan(offset, size);
}

std::optional<PackageContents> readPackageContents(const std::filesystem::path& path, std::string& fault) {
    auto bytes = readWholeFile(path);
    if (!bytes) {
        fault = "cannot be read";
        return std::nullopt;
    }
    const auto header = readPackageHeader(*bytes);
    if (!header) {
        fault = "is no package: it wants the bytes 78 19, then a directory of at least 8 bytes";
        return std::nullopt;
    }
    PackageContents contents;
    contents.file = std::move(*bytes);
    contents.header = *header;
    const auto rest = std::span(contents.file).subspan(kPackageHeaderSize);
    const auto directory = rest.first(std::min<std::size_t>(header->directorySize, rest.size()));
    contents.directoryIsCut = directory.size() < header->directorySize;
    contents.entries = readPackageDirectory(directory, header->entryCount);
    return contents;
}

}  // namespace grub
