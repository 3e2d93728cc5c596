#include "level_writer.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <utility>

#include "level_list.h"
#include "map_cell.h"
#include "memory_source.h"
#include "rules.h"

namespace grub {

namespace {

// Block ids of drawn levels: the number of the block type, and 20 for a plain empty cell so that id 0 stays unused.
constexpr std::uint16_t kEmptyBlock = 20;

struct Symbol {
    char character;
    std::uint16_t block;
    std::uint16_t code;
    std::uint16_t layer2 = 0;
};

constexpr std::array kSymbols{Symbol{'.', kEmptyBlock, 0},
                              Symbol{'@', kEmptyBlock, object_code::kHero},
                              Symbol{'=', 1, 0},
                              Symbol{'H', 2, 0},
                              Symbol{'-', 3, 0},
                              Symbol{'#', 5, 0},
                              Symbol{'h', 6, 0},
                              Symbol{'E', 8, 0},
                              Symbol{'s', 9, 0},
                              Symbol{'S', 9, 0, 1},
                              Symbol{'k', kEmptyBlock, object_code::kKey},
                              Symbol{'d', kEmptyBlock, object_code::kDog},
                              Symbol{'D', 2, object_code::kDog},
                              Symbol{'l', kEmptyBlock, object_code::kLady},
                              Symbol{'r', kEmptyBlock, object_code::kRat},
                              Symbol{'+', kEmptyBlock, object_code::kHeart},
                              Symbol{'~', kEmptyBlock, object_code::kDrops}};

CellRecord recordOf(char character) {
    for (const Symbol& symbol : kSymbols) {
        if (symbol.character == character) return {.base = symbol.block, .layer2 = symbol.layer2, .code = symbol.code};
    }
    std::cerr << "no cell looks like '" << character << "' in a drawn map\n";
    std::abort();
}

/// Takes away the last things when a level has no room for all.
void keepWithinLimits(std::vector<std::string>& rows, std::string_view things, std::size_t limit) {
    std::size_t count = 0;
    for (std::string& row : rows) {
        for (char& cell : row)
            if (things.find(cell) != std::string_view::npos && ++count > limit) cell = '.';
    }
}

}  // namespace

Drawing::Drawing(std::initializer_list<std::string_view> lines) {
    for (const std::string_view line : lines) std::erase(rows.emplace_back(line), ' ');
}

Drawing::Drawing(std::vector<std::string> lines) : rows(std::move(lines)) {}

void PrintTo(const Drawing& drawing, std::ostream* out) {
    for (const std::string& row : drawing.rows) *out << "\n    " << row;
}

LevelFile drawnLevel(const Drawing& drawing) {
    LevelFile level;
    level.height = static_cast<int>(drawing.rows.size());
    level.width = static_cast<int>(drawing.rows.front().size());
    for (const std::string& row : drawing.rows) {
        for (const char character : row) level.records.push_back(recordOf(character));
    }
    return level;
}

std::string drawnBlockTable() {
    return "[1]\r\ntype=1\r\nspriteFire=88\r\nspriteRost=90\r\n[2]\r\ntype=2\r\n[3]\r\ntype=3\r\n[5]\r\ntype=5\r\n"
           "[6]\r\ntype=6\r\nspriteRost=50\r\n[8]\r\ntype=8\r\nspriteRost=169\r\n[9]\r\ntype=9\r\n";
}

LevelMap mapFrom(const Drawing& drawing) {
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

Drawing drawingByChance(int width, int height, bool isThicket, WorldRandom& random) {
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
    keepWithinLimits(rows, "dlr", kMaxEnemies);
    keepWithinLimits(rows, "+", kMaxObjects - kMaxEnemies);
    keepWithinLimits(rows, "s", kMaxSpawnPoints);
    for (const char symbol : {'E', '@'})
        rows[static_cast<std::size_t>(random.next() % height)][static_cast<std::size_t>(random.next() % width)] =
            symbol;
    return Drawing(std::move(rows));
}

}  // namespace grub
