#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "engine_string.h"
#include "slot_file.h"

namespace grub {

/// Slots have the numbers 0 to 2.
inline constexpr int kSaveSlots = 3;

/// What menus show of a slot. The labels of a slot without a game are empty.
struct SaveSlotInfo {
    bool exists = false;
    EngineString levelLabel;     // "Level 8" for the level with index 7
    EngineString dateTimeLabel;  // "MM/DD/YY HH:MM:SS", local time of saving
};

/// The player's saved games: the files "slot0.sav" to "slot2.sav" in the working directory. A slot is empty when its
/// file cannot be read or holds no good game; saving replaces also such a file. Game thread only.
class SaveSlots {
public:
    /// Saves with the present local time, and waits for the disk. On failure the slot keeps what it held. Does not
    /// touch `info`.
    bool saveGame(int slot, const GameProgress& game);
    /// Nothing when the slot is empty now, whatever `info` says.
    [[nodiscard]] std::optional<GameProgress> loadGame(int slot) const;
    /// Reads all slots for `info`.
    void refreshSlotInfo();
    /// What `refreshSlotInfo` saw last; before that every slot is empty. Valid as long as this object.
    [[nodiscard]] const SaveSlotInfo& info(int slot) const { return info_.at(static_cast<std::size_t>(slot)); }

private:
    std::array<SaveSlotInfo, kSaveSlots> info_;
};

}  // namespace grub
