#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "high_scores.h"

namespace grub {

inline constexpr std::size_t kScoreFileSize = 204;

/// The bytes of a score file (docs/formats/scores.md), `kScoreFileSize` of them.
[[nodiscard]] std::vector<std::uint8_t> scoreBytes(const HighScoreTable& table);
/// Reads a score file. What is damaged costs only its own row: the good rows stay, and come into order.
[[nodiscard]] HighScoreTable tableFrom(std::span<const std::uint8_t> bytes);

}  // namespace grub
