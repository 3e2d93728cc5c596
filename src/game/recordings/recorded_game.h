#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "attempt.h"
#include "key_events.h"
#include "level_map.h"
#include "rules.h"
#include "world.h"

namespace grub {

/// A thing on the field that comes, goes or moves, as a character in a cell:
///
///     _ open hole   k key   d l r dog, lady, rat; D L R one in a hole   @ Grub
///     bonuses: I invisibility   K skull   A anchor   B bomb   S shield   + heart
struct FieldMark {
    char symbol = ' ';
    CellPosition cell;

    friend bool operator==(const FieldMark&, const FieldMark&) = default;
};

/// Whether a mark may have this character.
[[nodiscard]] bool isMarkSymbol(char symbol);

/// The marks of a world; later ones cover earlier ones. Dead enemies have no mark.
[[nodiscard]] std::vector<FieldMark> marksOf(const World& world);

/// The field as a drawing, a text for each row: what stands still comes from `map`, the rest from `marks`.
///
///     . nothing   # solid   = floor to dig   H ladder   h hidden ladder   - pipe   E exit   s spawn point   ? other
[[nodiscard]] std::vector<std::string> drawField(const LevelMap& map, const std::vector<FieldMark>& marks);

/// Frames from one recorded state to the next: 1 s.
inline constexpr int kStateInterval = 25;

/// The state of a world after a frame. The hash covers all of it; the marks can be read and drawn.
struct RecordedState {
    int frame = 0;
    std::uint64_t hash = 0;
    std::vector<FieldMark> marks;

    friend bool operator==(const RecordedState&, const RecordedState&) = default;
};

/// How a game ended. One that the player left (`Quit`) ended after `frame`, every other in it.
struct RecordedEnd {
    int frame = 0;
    LossCause cause = LossCause::Quit;
    int score = 0;
    int keys = 0;  // that still lay

    friend bool operator==(const RecordedEnd&, const RecordedEnd&) = default;
};

/// One attempt at a level, written down: how it started, what the player did, how it ended.
struct RecordedGame {
    std::string level;  // a name of the level list, or a path relative to the game's file
    WorldStart start;
    std::vector<KeyEvent> events;       // in the order of frames
    std::vector<RecordedState> states;  // of frame 0, each kStateInterval frames, and the last frame; empty in a draft
    std::optional<RecordedEnd> end;     // missing in a draft

    /// Whether it has its states and its end. A draft lacks them.
    [[nodiscard]] bool isComplete() const { return end && !states.empty(); }

    friend bool operator==(const RecordedGame&, const RecordedGame&) = default;
};

}  // namespace grub
