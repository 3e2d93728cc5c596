#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <span>

#include "engine_string.h"

namespace grub {

/// No game can come to a higher score; still so low that play cannot count beyond 32 bits.
inline constexpr int kHighestScore = 1'000'000'000;

/// The state of a game at the start of a level: what a slot keeps.
struct GameProgress {
    int levelIndex = 0;  // 0 to 49
    int lives = 0;
    int score = 0;

    bool operator==(const GameProgress&) const = default;
};

/// What a slot's file says.
struct SlotContents {
    GameProgress game;
    EngineString dateTime;  // "MM/DD/YY HH:MM:SS"
};

inline constexpr std::size_t kSlotFileSize = 52;

/// The bytes of a slot's file (docs/formats/saves.md).
[[nodiscard]] std::array<std::uint8_t, kSlotFileSize> slotBytes(const GameProgress& game, const std::tm& savedAt);
/// Reads a slot's file. Nothing when it is short, when play could not have come to such a game, or when date or time is
/// no such text. Bytes behind the 52 are ignored: they change nothing of what the first 52 say.
[[nodiscard]] std::optional<SlotContents> slotContents(std::span<const std::uint8_t> bytes);

}  // namespace grub
