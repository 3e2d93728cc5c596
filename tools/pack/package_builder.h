#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace grub {

/// A resource that waits to be packed; the name as the directory will spell it.
struct PackItem {
    std::string name;
    std::vector<std::uint8_t> bytes;
};

/// Every file below `directory` under its path from there, "/" turned into "\". Nothing, and a sentence in `fault`,
/// when one cannot be read or cannot be named.
[[nodiscard]] std::optional<std::vector<PackItem>> collectPackItems(const std::filesystem::path& directory,
                                                                    std::string& fault);

/// The package of `items` in the order of their names' bytes, data back to back in that order behind the directory, so
/// that the same items always give the same bytes. Nothing, and a sentence in `fault`, when the format cannot hold
/// them.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> buildPackage(std::vector<PackItem> items, std::string& fault);

}  // namespace grub
