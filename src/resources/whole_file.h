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
/// removes the new one. For tools and recorded games: it does not wait for the disk, and a pipe or a device stays one.
/// What the player would miss after a power cut takes `replaceFile` (replace_file.h).
[[nodiscard]] bool writeWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
[[nodiscard]] bool writeWholeText(const std::filesystem::path& path, std::string_view text);

}  // namespace grub
