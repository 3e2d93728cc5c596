#include "level_checks.h"

#include <algorithm>

#include "block_type.h"
#include "enemy_kind.h"
#include "object_code.h"
#include "rules.h"

namespace grub {

namespace {

/// What the game can hold of each thing, and what a level needs; `kMany` = no upper limit.
constexpr int kMany = kMaxMapSize * kMaxMapSize;
constexpr int kMostKeys = static_cast<int>(kMaxCollectedKeys);
constexpr int kMostObjects = static_cast<int>(kMaxObjects);
constexpr int kMostEnemies = static_cast<int>(kMaxEnemies);
constexpr int kMostSpawnPoints = static_cast<int>(kMaxSpawnPoints);

/// A level of 13 columns does not scroll although half of the last one lies outside the screen; the same with 9 rows,
/// the last of which lies half behind the panel.
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

/// Whether a rat would run on into this cell: there is room, and something under it.
bool ratRunsInto(const LevelFile& level, const BlockPalette& palette, int column, int row) {
    if (column < 0 || column >= level.width) return false;
    const BlockType type = typeOf(recordAt(level, column, row), palette);
    if (type == BlockType::Ladder || (type != BlockType::Floor && type != BlockType::Solid && row == level.height - 1))
        return true;
    if (type == BlockType::Floor || type == BlockType::Solid) return false;
    const BlockType below = typeOf(recordAt(level, column, row + 1), palette);
    return below == BlockType::Floor || below == BlockType::Solid || below == BlockType::Ladder;
}

std::string hiddenCell(const LevelFile& level, const BlockPalette& palette) {
    for (int row = 0; row < level.height; ++row) {
        for (int column = 0; column < level.width; ++column) {
            const bool hidden = (level.width == kHalfHiddenColumn + 1 && column == kHalfHiddenColumn) ||
                                (level.height == kHalfHiddenRow + 1 && row == kHalfHiddenRow);
            if (hidden && typeOf(recordAt(level, column, row), palette) != BlockType::Solid)
                return "wanted nothing but solid blocks in the last of 13 columns or 9 rows, half of which no player "
                       "sees, "
                       "found another at " +
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
        {tally.doors, 1, kMany, "doors (E)"},
        {tally.enemies, 0, kMostEnemies, "enemies (D, R, L)"},
        {tally.objects, 0, kMostObjects, "enemies, hearts and moving decorations together"},
        {tally.spawnPoints, 0, kMostSpawnPoints, "spawn points (S)"},
    };
    for (const auto& rule : rules)
        if (rule.found < rule.least || rule.found > rule.most)
            return "wanted " + std::to_string(rule.least) + " to " + std::to_string(rule.most) + " " + rule.what +
                   ", found " + std::to_string(rule.found);
    return hiddenCell(level, palette);
}

std::vector<std::string> levelWarnings(const LevelFile& level, const BlockPalette& palette) {
    std::vector<std::string> warnings;
    for (int row = 0; row < level.height; ++row) {
        for (int column = 0; column < level.width; ++column) {
            if (recordAt(level, column, row).code != object_code::kRat) continue;
            if (ratRunsInto(level, palette, column - 1, row) || ratRunsInto(level, palette, column + 1, row)) continue;
            warnings.push_back("the rat at " + std::to_string(column) + " " + std::to_string(row) +
                               " is shut in and dies in the wall as it turns");
        }
    }
    return warnings;
}

}  // namespace grub
