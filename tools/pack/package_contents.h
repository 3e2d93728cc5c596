#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "resource_package.h"

namespace grub {

/// A whole package in memory, for tools: they look at what the game's reader passes over silently. Move it, do not copy
/// it: the entries' names point into `file`.
struct PackageContents {
    std::vector<std::uint8_t> file;
    PackageHeader header;
    std::vector<PackageEntry> entries;
    bool directoryIsCut = false;  // the file ends inside the directory; `entries` are those before

    PackageContents() = default;
    PackageContents(const PackageContents&) = delete;
    PackageContents& operator=(const PackageContents&) = delete;
    PackageContents(PackageContents&&) = default;
    PackageContents& operator=(PackageContents&&) = default;
    ~PackageContents() = default;

    /// The first byte behind the directory, as the header says.
    [[nodiscard]] std::uint32_t dataStart() const { return kPackageHeaderSize + header.directorySize; }
    /// Nothing when the entry reaches beyond the file.
    [[nodiscard]] std::optional<std::span<const std::uint8_t>> bytesOf(const PackageEntry& entry) const;
};

/// Nothing, and a sentence in `fault`, when the file cannot be read or does not start as a package.
[[nodiscard]] std::optional<PackageContents> readPackageContents(const std::filesystem::path& path, std::string& fault);

}  // namespace grub
