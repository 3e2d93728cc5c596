#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace grub {

/// Nothing when the file cannot be read.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> readWholeFile(const std::filesystem::path& path);

/// False, and no half-written file stays behind, when the bytes cannot be written.
[[nodiscard]] bool writeWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

}  // namespace grub
