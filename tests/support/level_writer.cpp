#include "level_writer.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "level_list.h"
#include "map_cell.h"
#include "memory_source.h"

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

}  // namespace grub
