#include "recorded_game.h"

#include <algorithm>

namespace grub {

namespace {

constexpr char kHoleSymbol = '_';
constexpr char kKeySymbol = 'k';
constexpr char kHeroSymbol = '@';
/// In the order of BonusKind.
constexpr std::string_view kBonusSymbols = "IKABS+";

void addCellMarks(const LevelMap& map, std::vector<FieldMark>& marks) {
    std::vector<FieldMark> keys;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            const MapCell& cell = map.cellAt(x, y);
            if (cell.breakState != BreakState::Intact) marks.push_back({kHoleSymbol, {x, y}});
            if (cell.keyPresent) keys.push_back({kKeySymbol, {x, y}});
        }
    }
    marks.insert(marks.end(), keys.begin(), keys.end());
}

constexpr char capital(char letter) { return static_cast<char>(letter - 'a' + 'A'); }

char symbolOf(const Enemy& enemy) {
    const bool inHole = enemy.state() == EnemyState::Trapped || enemy.state() == EnemyState::Escaping;
    return inHole ? capital(enemy.traits().mark) : enemy.traits().mark;
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

bool isMarkSymbol(char symbol) {
    if (symbol == kHoleSymbol || symbol == kKeySymbol || symbol == kHeroSymbol) return true;
    if (kBonusSymbols.find(symbol) != std::string_view::npos) return true;
    return std::ranges::any_of(
        kEnemyTraits, [symbol](char mark) { return symbol == mark || symbol == capital(mark); }, &EnemyTraits::mark);
}

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
    marks.push_back({kHeroSymbol, {world.hero().cellX(), world.hero().cellY()}});
    return marks;
}

std::vector<std::string> drawField(const LevelMap& map, const std::vector<FieldMark>& marks) {
    const bool keysLie = std::ranges::find(marks, kKeySymbol, &FieldMark::symbol) != marks.end();
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
