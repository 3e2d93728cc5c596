#include "level_compiler.h"

#include <algorithm>

#include "enemy_traits.h"
#include "level_file.h"
#include "map_cell.h"
#include "rules.h"

namespace grub {

namespace {

/// The most of each thing that the game can hold; `kMany` is no limit.
constexpr int kMany = kMaxMapSize * kMaxMapSize;
constexpr int kMostKeys = static_cast<int>(kMaxCollectedKeys);
constexpr int kMostObjects = static_cast<int>(kMaxObjects);
constexpr int kMostEnemies = static_cast<int>(kMaxEnemies);
constexpr int kMostSpawnPoints = static_cast<int>(kMaxSpawnPoints);

/// A level of 13 columns does not scroll, although half of the last column lies outside the screen. A level of 9 rows
/// does not scroll either, and the panel covers half of the last row.
constexpr int kHalfHiddenColumn = 12;
constexpr int kHalfHiddenRow = 8;

BlockType typeOf(const CellRecord& cell, const BlockPalette& palette) {
    const Block* block = palette.byId(valueIn(cell, Slot::Base));
    return block == nullptr ? BlockType::Empty : blockTypeOf(block->type);
}

/// A thing that a level has a number of.
struct CountRule {
    bool (*counts)(std::uint16_t code, BlockType type);
    int least, most;
    const char* what;
};

constexpr CountRule kCountRules[] = {
    {[](std::uint16_t code, BlockType) { return code == object_code::kHero; }, 1, 1, "hero (@)"},
    {[](std::uint16_t code, BlockType) { return object_code::isKey(code); }, 1, kMostKeys, "keys (k)"},
    {[](std::uint16_t, BlockType type) { return type == BlockType::Exit; }, 1, kMany, "door (E)"},
    {[](std::uint16_t code, BlockType) { return isEnemy(code); }, 0, kMostEnemies, "enemies (D, R, L)"},
    {[](std::uint16_t code, BlockType) { return object_code::isObject(code); }, 0, kMostObjects,
     "enemies, hearts and moving decorations together"},
    {[](std::uint16_t, BlockType type) { return type == BlockType::SpawnPoint; }, 0, kMostSpawnPoints,
     "spawn points (S)"},
};

std::string rangeText(int least, int most) {
    if (least == most) return "exactly " + std::to_string(least);
    if (most == kMany) return "at least " + std::to_string(least);
    if (least == 0) return "at most " + std::to_string(most);
    return std::to_string(least) + " to " + std::to_string(most);
}

CellPosition placeOf(const LevelFile& level, std::size_t index) {
    const auto columns = static_cast<std::size_t>(level.width);
    return {static_cast<int>(index % columns), static_cast<int>(index / columns)};
}

/// Whether a level breaks a rule; the fault stands at the first thing too many.
std::optional<LevelFault> brokenBy(const LevelFile& level, const BlockPalette& palette, const CountRule& rule) {
    LevelFault fault;
    int found = 0;
    for (std::size_t i = 0; i < level.records.size(); ++i) {
        const CellRecord& cell = level.records[i];
        if (rule.counts(cell.code, typeOf(cell, palette)) && ++found == rule.most + 1) fault.cell = placeOf(level, i);
    }
    if (found >= rule.least && found <= rule.most) return std::nullopt;
    fault.reason = "wanted " + rangeText(rule.least, rule.most) + " " + rule.what + ", found " + std::to_string(found);
    return fault;
}

bool liesHalfOutside(const LevelFile& level, CellPosition cell) {
    return (level.width == kHalfHiddenColumn + 1 && cell.x == kHalfHiddenColumn) ||
           (level.height == kHalfHiddenRow + 1 && cell.y == kHalfHiddenRow);
}

/// The first cell that lies half outside the screen and is not solid.
std::optional<LevelFault> hiddenCell(const LevelFile& level, const BlockPalette& palette) {
    for (std::size_t i = 0; i < level.records.size(); ++i) {
        const CellPosition cell = placeOf(level, i);
        if (liesHalfOutside(level, cell) && typeOf(level.records[i], palette) != BlockType::Solid)
            return LevelFault{cell,
                              "wanted solid blocks only in the last of 13 columns or 9 rows, which lies half outside "
                              "the screen, found another block"};
    }
    return std::nullopt;
}

}  // namespace

TextError faultInSource(const LevelFault& fault, const LevelSource& source) {
    if (!fault.cell) return {source.fieldLine - 1, fault.reason};
    return {source.fieldLine + fault.cell->y, fault.reason, fault.cell->x + 1};
}

std::vector<LevelFault> levelFaults(const LevelFile& level, const BlockPalette& palette) {
    std::vector<LevelFault> faults;
    for (const CountRule& rule : kCountRules)
        if (auto fault = brokenBy(level, palette, rule)) faults.push_back(std::move(*fault));
    if (auto fault = hiddenCell(level, palette)) faults.push_back(std::move(*fault));
    return faults;
}

std::optional<std::vector<std::uint8_t>> compileLevel(std::string_view text, const BlockPalette& palette,
                                                      TextError& error) {
    const auto source = parseLevelSource(text, error);
    if (!source) return std::nullopt;
    const auto level = dressLevel(*source, palette, error);
    if (!level) return std::nullopt;
    if (const auto faults = levelFaults(*level, palette); !faults.empty()) {
        error = faultInSource(faults.front(), *source);
        return std::nullopt;
    }
    return writeLevelFile(*level);
}

}  // namespace grub
