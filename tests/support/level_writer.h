#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "level_file.h"
#include "level_list.h"
#include "level_loader.h"
#include "level_map.h"
#include "map_cell.h"
#include "memory_source.h"
#include "rules.h"
#include "world_random.h"

namespace grub {

/// A map drawn in characters, a string for each row. Cells may stand apart ("@ . #") or close ("@.#").
///
///     @ Grub   . nothing   # solid   = diggable floor   H ladder   h hidden ladder   - pipe   k key   E exit
///     s spawn point   S one inside a floor   d dog   D dog on a ladder   l lady   r rat   + heart   ~ drops
///
/// A drawing of a world also has _ for a floor that is broken.
struct Drawing {
    std::vector<std::string> rows;

    /// Blanks between cells are left out.
    Drawing(std::initializer_list<std::string_view> lines) {
        for (const std::string_view line : lines) std::erase(rows.emplace_back(line), ' ');
    }
    explicit Drawing(std::vector<std::string> lines) : rows(std::move(lines)) {}

    friend bool operator==(const Drawing&, const Drawing&) = default;
    /// Two pictures of a failed comparison stand under each other.
    friend void PrintTo(const Drawing& drawing, std::ostream* out) {
        for (const std::string& row : drawing.rows) *out << "\n    " << row;
    }
};

/// The character of the block that has this number as type and, in drawn levels, as id.
inline constexpr std::string_view kDrawnBlocks = " =H- #h Es";
/// A plain empty cell: id 0 stays unused.
inline constexpr std::uint16_t kEmptyBlock = 20;
/// The characters of things on plain empty cells, and their object codes.
inline constexpr std::string_view kDrawnThings = "@kdlr+~.";
inline constexpr std::uint16_t kDrawnCodes[] = {
    object_code::kHero, object_code::kKey,   object_code::kDog,   object_code::kLady,
    object_code::kRat,  object_code::kHeart, object_code::kDrops, 0};

/// The cell that a character stands for; aborts with a message when it stands for none.
[[nodiscard]] inline CellRecord recordOf(char character) {
    if (character == 'S') return {.base = 9, .layer2 = 1};
    const std::size_t block = kDrawnBlocks.find(character);
    if (block != std::string_view::npos) return {.base = static_cast<std::uint16_t>(block)};
    if (character == 'D') return {.base = 2, .code = object_code::kDog};
    const std::size_t thing = kDrawnThings.find(character);
    if (thing != std::string_view::npos) return {.base = kEmptyBlock, .code = kDrawnCodes[thing]};
    std::cerr << "no cell looks like '" << character << "' in a drawn map\n";
    std::abort();
}

/// The level file of a drawing, for the blocks of `drawnBlockTable`.
[[nodiscard]] inline LevelFile drawnLevel(const Drawing& drawing) {
    LevelFile level;
    level.height = static_cast<int>(drawing.rows.size());
    level.width = static_cast<int>(drawing.rows.front().size());
    for (const std::string& row : drawing.rows)
        std::ranges::transform(row, std::back_inserter(level.records), recordOf);
    return level;
}

/// The block table of drawn levels: floors break with animation 83 and grow back with 84, hidden ladders appear as
/// picture 5, exits open with animation 99.
[[nodiscard]] inline std::string drawnBlockTable() {
    return "[1]\r\ntype=1\r\nspriteFire=88\r\nspriteRost=90\r\n[2]\r\ntype=2\r\n[3]\r\ntype=3\r\n[5]\r\ntype=5\r\n"
           "[6]\r\ntype=6\r\nspriteRost=50\r\n[8]\r\ntype=8\r\nspriteRost=169\r\n[9]\r\ntype=9\r\n[20]\r\ntype=0\r\n";
}

/// The map of a drawing, built the way the game builds it.
[[nodiscard]] inline LevelMap mapFrom(const Drawing& drawing) {
    MemorySource source;
    source.put(std::string(kBlockTableName), drawnBlockTable());
    LevelLoader loader(source);
    loader.loadBlockTypes();
    for (const auto& [number, id] : {std::pair{88, 83}, {90, 84}, {50, 5}, {169, 99}})
        loader.spriteNumbers().addSpriteNumber(number, static_cast<std::int16_t>(id));
    std::string reason;
    auto map = loader.build(drawnLevel(drawing), reason);
    if (!map) {
        std::cerr << "a drawn map was refused: " << reason << "\n";
        std::abort();
    }
    return *std::move(map);
}

/// A level drawn by chance, the same for the same state of the generator: storeys with holes in their floors, ladders,
/// pipes, walls, keys, an exit, enemies and spawn points in any mixture, within the limits of a level. A thicket has up
/// to eight times the ladders and no storeys: ways meet again and again, and a plain fill of its distances takes long.
[[nodiscard]] inline Drawing drawingByChance(int width, int height, bool isThicket, WorldRandom& random) {
    const auto upTo = [&random](int most) { return random.next() % (most + 1); };
    const auto chance = [&random](int percent) { return random.next() % 100 < percent; };
    const int storey = isThicket ? kMaxMapSize + 1 : 2 + upTo(3);  // rows from floor to floor
    const int holes = upTo(12);                                    // this and the rest are percents of the cells
    const std::pair<const char*, int> things[] = {{"HHHHh", 1 + upTo(isThicket ? 60 : 8)},
                                                  {"#=", upTo(isThicket ? 20 : 6)},
                                                  {"-", upTo(8)},
                                                  {"dlr", 1 + upTo(4)},
                                                  {"s", upTo(2)},
                                                  {"k", upTo(2)},
                                                  {"E+", 1}};
    std::vector<std::string> rows(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), '.'));
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            char& cell = rows[y][x];
            for (const auto& [symbols, percent] : things)
                if (cell == '.' && chance(percent))
                    cell = symbols[random.next() % static_cast<int>(std::strlen(symbols))];
            const bool isFloor = static_cast<int>(y) % storey == storey - 1;
            if (isFloor && std::strchr("H#", cell) == nullptr && !chance(holes)) cell = '=';
            if (y > 0 && rows[y - 1][x] == 'H' && chance(75)) cell = 'H';  // ladders go down
        }
    }
    if (chance(66)) std::ranges::fill(rows.back(), '=');
    const std::pair<std::string_view, std::size_t> limits[] = {
        {"dlr", kMaxEnemies}, {"+", kMaxObjects - kMaxEnemies}, {"s", kMaxSpawnPoints}};
    for (const auto& limit : limits) {  // the last things go when a level has no room for all
        std::size_t count = 0;
        for (std::string& row : rows)
            std::ranges::replace_if(
                row,
                [&](char cell) { return limit.first.find(cell) != std::string_view::npos && ++count > limit.second; },
                '.');
    }
    for (const char symbol : {'E', '@'})
        rows[static_cast<std::size_t>(random.next() % height)][static_cast<std::size_t>(random.next() % width)] =
            symbol;
    return Drawing(std::move(rows));
}

}  // namespace grub
