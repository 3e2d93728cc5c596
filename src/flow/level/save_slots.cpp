#include "save_slots.h"

#include <cstdint>
#include <ctime>
#include <span>
#include <string>

#include "file_stream.h"
#include "replace_file.h"

namespace grub {
namespace {

EngineString pathOf(int slot) { return EngineString("slot" + std::to_string(slot) + ".sav"); }

std::optional<SlotContents> readSlot(int slot) {
    std::array<std::uint8_t, kSlotFileSize> bytes{};
    const auto count = FileStream(pathOf(slot), kOpenRead).read(bytes.data(), kSlotFileSize);
    if (count < 0) return std::nullopt;
    return slotContents(std::span(bytes).first(static_cast<std::size_t>(count)));
}

std::tm localTime() {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    return local != nullptr ? *local : std::tm{};
}

SaveSlotInfo infoOf(const SlotContents& contents) {
    return {.exists = true,
            .levelLabel = EngineString("Level " + std::to_string(contents.game.levelIndex + 1)),
            .dateTimeLabel = contents.dateTime};
}

}  // namespace

bool SaveSlots::saveGame(int slot, const GameProgress& game) {
    return replaceFile(pathOf(slot), slotBytes(game, localTime()));
}

std::optional<GameProgress> SaveSlots::loadGame(int slot) const {
    const auto contents = readSlot(slot);
    if (!contents) return std::nullopt;
    return contents->game;
}

void SaveSlots::refreshSlotInfo() {
    for (int slot = 0; slot < kSaveSlots; ++slot) {
        const auto contents = readSlot(slot);
        info_[static_cast<std::size_t>(slot)] = contents ? infoOf(*contents) : SaveSlotInfo{};
    }
}

}  // namespace grub
