#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "resource_package.h"

namespace grub {

/// A whole package in memory, faults included. It can be moved but not copied: the entries' names point into `file`.
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
    /// The same of the first entry with this name; nothing as well when the directory has no such entry.
    [[nodiscard]] std::optional<std::span<const std::uint8_t>> bytesOf(std::string_view name) const;
};

/// Reads a package. Nothing, and a sentence in `fault`, when the file cannot be read or does not start as a package.
[[nodiscard]] std::optional<PackageContents> readPackageContents(const std::filesystem::path& path, std::string& fault);

/// A resource to be packed, with its name in the directory.
struct PackItem {
    std::string name;
    std::vector<std::uint8_t> bytes;
};

/// Every file below `directory`, named by its path from there with "\" in place of "/". Nothing, and a sentence in
/// `fault`, when a file cannot be read or its name has a "\".
[[nodiscard]] std::optional<std::vector<PackItem>> collectPackItems(const std::filesystem::path& directory,
                                                                    std::string& fault);

/// The package of `items`: the directory and then the data, both in the order of the names' bytes, so that the same
/// items always give the same bytes. Nothing, and a sentence in `fault`, when the format cannot hold them.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> buildPackage(std::vector<PackItem> items, std::string& fault);

/// Writes every resource to a file of its name below `directory`, which is made if need be. Of two equal names it takes
/// the first, as the game does. False, and a sentence in `fault`, when a file cannot be written, or when a name would
/// leave the directory or an entry the package; then it writes nothing at all.
[[nodiscard]] bool extractPackage(const PackageContents& package, const std::filesystem::path& directory,
                                  std::string& fault);

}  // namespace grub
