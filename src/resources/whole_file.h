#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace grub {

/// Nothing when the file cannot be read.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> readWholeFile(const std::filesystem::path& path);
[[nodiscard]] std::optional<std::string> readWholeText(const std::filesystem::path& path);

/// Writes beside the file first: when it fails, false, what was there stays, and nothing half-written does.
[[nodiscard]] bool writeWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
[[nodiscard]] bool writeWholeText(const std::filesystem::path& path, std::string_view text);

}  // namespace grub
