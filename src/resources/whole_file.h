#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace grub {

/// All bytes of a file; nothing when it cannot be read.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> readWholeFile(const std::filesystem::path& path);
[[nodiscard]] std::optional<std::string> readWholeText(const std::filesystem::path& path);

/// Replaces a file: writes a new file beside it, then renames that. On failure returns false, keeps the old file, and
/// removes the new one.
[[nodiscard]] bool writeWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
[[nodiscard]] bool writeWholeText(const std::filesystem::path& path, std::string_view text);

}  // namespace grub
