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

struct Tally {
    int heroes = 0;
    int keys = 0;
    int objects = 0;
    int enemies = 0;
    int doors = 0;
    int spawnPoints = 0;
};

BlockType typeOf(const CellRecord& cell, const BlockPalette& palette) {
    const Block* block = palette.byId(valueIn(cell, Slot::Base));
    return block == nullptr ? BlockType::Empty : blockTypeOf(block->type);
}

Tally count(const LevelFile& level, const BlockPalette& palette) {
    Tally tally;
    for (const CellRecord& cell : level.records) {
        const std::uint16_t code = valueIn(cell, Slot::Object);
        const BlockType type = typeOf(cell, palette);
        tally.heroes += code == object_code::kHero ? 1 : 0;
        tally.keys += object_code::isKey(code) ? 1 : 0;
        tally.objects += object_code::isObject(code) ? 1 : 0;
        tally.enemies += isEnemy(code) ? 1 : 0;
        tally.doors += type == BlockType::Exit ? 1 : 0;
        tally.spawnPoints += type == BlockType::SpawnPoint ? 1 : 0;
    }
    return tally;
}

/// Whether a rat would run on into this cell: the cell has room, and something to stand on below it.
bool ratRunsInto(const LevelFile& level, const BlockPalette& palette, int column, int row) {
    if (column < 0 || column >= level.width) return false;
    const BlockType type = typeOf(recordAt(level, column, row), palette);
    if (type == BlockType::Ladder || (type != BlockType::Floor && type != BlockType::Solid && row == level.height - 1))
        return true;
    if (type == BlockType::Floor || type == BlockType::Solid) return false;
    const BlockType below = typeOf(recordAt(level, column, row + 1), palette);
    return below == BlockType::Floor || below == BlockType::Solid || below == BlockType::Ladder;
}

std::string rangeText(int least, int most) {
    if (least == most) return "exactly " + std::to_string(least);
    if (most == kMany) return "at least " + std::to_string(least);
    if (least == 0) return "at most " + std::to_string(most);
    return std::to_string(least) + " to " + std::to_string(most);
}

/// One line about the first cell that lies half outside the screen and is not solid; empty when there is no such cell.
std::string hiddenCell(const LevelFile& level, const BlockPalette& palette) {
    for (int row = 0; row < level.height; ++row) {
        for (int column = 0; column < level.width; ++column) {
            const bool hidden = (level.width == kHalfHiddenColumn + 1 && column == kHalfHiddenColumn) ||
                                (level.height == kHalfHiddenRow + 1 && row == kHalfHiddenRow);
            if (hidden && typeOf(recordAt(level, column, row), palette) != BlockType::Solid)
                return "wanted solid blocks only in the last of 13 columns or 9 rows, which lies half outside the "
                       "screen, found another block at " +
                       std::to_string(column) + " " + std::to_string(row);
        }
    }
    return {};
}

}  // namespace

std::string levelFault(const LevelFile& level, const BlockPalette& palette) {
    const Tally tally = count(level, palette);
    const struct {
        int found, least, most;
        const char* what;
    } rules[] = {
        {tally.heroes, 1, 1, "hero (@)"},
        {tally.keys, 1, kMostKeys, "keys (k)"},
        {tally.doors, 1, kMany, "door (E)"},
        {tally.enemies, 0, kMostEnemies, "enemies (D, R, L)"},
        {tally.objects, 0, kMostObjects, "enemies, hearts and moving decorations together"},
        {tally.spawnPoints, 0, kMostSpawnPoints, "spawn points (S)"},
    };
    for (const auto& rule : rules)
        if (rule.found < rule.least || rule.found > rule.most)
            return "wanted " + rangeText(rule.least, rule.most) + " " + rule.what + ", found " +
                   std::to_string(rule.found);
    return hiddenCell(level, palette);
}

std::vector<std::string> levelWarnings(const LevelFile& level, const BlockPalette& palette) {
    std::vector<std::string> warnings;
    for (int row = 0; row < level.height; ++row) {
        for (int column = 0; column < level.width; ++column) {
            if (recordAt(level, column, row).code != object_code::kRat) continue;
            if (ratRunsInto(level, palette, column - 1, row) || ratRunsInto(level, palette, column + 1, row)) continue;
            warnings.push_back("the rat at " + std::to_string(column) + " " + std::to_string(row) +
                               " is shut in: it will turn into the wall and die");
        }
    }
    return warnings;
}

std::optional<std::vector<std::uint8_t>> compileLevel(std::string_view text, const BlockPalette& palette,
                                                      TextError& error) {
    const auto source = parseLevelSource(text, error);
    if (!source) return std::nullopt;
    const auto level = dressLevel(*source, palette, error);
    if (!level) return std::nullopt;
    if (std::string fault = levelFault(*level, palette); !fault.empty()) {
        error = {0, std::move(fault)};
        return std::nullopt;
    }
    return writeLevelFile(*level);
}

}  // namespace grub
