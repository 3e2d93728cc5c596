#include "recorded_game.h"

#include <algorithm>

namespace grub {

namespace {

/// In the order of BonusKind.
constexpr std::string_view kBonusSymbols = "IKABS+";

void addCellMarks(const LevelMap& map, std::vector<FieldMark>& marks) {
    std::vector<FieldMark> keys;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            const MapCell& cell = map.cellAt(x, y);
            if (cell.breakState != BreakState::Intact) marks.push_back({'_', {x, y}});
            if (cell.keyPresent) keys.push_back({'k', {x, y}});
        }
    }
    marks.insert(marks.end(), keys.begin(), keys.end());
}

char symbolOf(const Enemy& enemy) {
    const bool inHole = enemy.state() == EnemyState::Trapped || enemy.state() == EnemyState::Escaping;
    switch (enemy.kind()) {
        case EnemyKind::Dog: return inHole ? 'D' : 'd';
        case EnemyKind::Lady: return inHole ? 'L' : 'l';
        case EnemyKind::Rat: break;
    }
    return inHole ? 'R' : 'r';
}

char symbolOf(const MapCell& cell, bool laddersAppeared) {
    if (cell.isExit) return 'E';
    if (cell.isSpawnPoint) return 's';
    switch (cell.baseType) {
        case BlockType::Empty: return '.';
        case BlockType::Floor: return '=';
        case BlockType::Ladder: return 'H';
        case BlockType::Pipe: return '-';
        case BlockType::Solid: return '#';
        case BlockType::HiddenLadder: return laddersAppeared ? 'H' : 'h';
        default: return '?';
    }
}

}  // namespace

std::vector<FieldMark> marksOf(const World& world) {
    std::vector<FieldMark> marks;
    addCellMarks(world.map(), marks);
    for (const auto& bonus : world.bonuses().slots) {
        if (!bonus) continue;
        const char symbol = kBonusSymbols[static_cast<std::size_t>(bonus->bonusKind())];
        marks.push_back({symbol, {bonus->cellX(), bonus->cellY()}});
    }
    for (const Enemy& enemy : world.enemies()) {
        if (enemy.state() != EnemyState::Dead) marks.push_back({symbolOf(enemy), {enemy.cellX(), enemy.cellY()}});
    }
    marks.push_back({'@', {world.hero().cellX(), world.hero().cellY()}});
    return marks;
}

std::vector<std::string> drawField(const LevelMap& map, const std::vector<FieldMark>& marks) {
    const bool keysLie = std::ranges::find(marks, 'k', &FieldMark::symbol) != marks.end();
    std::vector<std::string> rows(static_cast<std::size_t>(map.height()));
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) rows[static_cast<std::size_t>(y)] += symbolOf(map.cellAt(x, y), !keysLie);
    }
    for (const FieldMark& mark : marks) {
        if (!map.contains(mark.cell.x, mark.cell.y)) continue;  // of a game on another map
        rows[static_cast<std::size_t>(mark.cell.y)][static_cast<std::size_t>(mark.cell.x)] = mark.symbol;
    }
    return rows;
}

}  // namespace grub
