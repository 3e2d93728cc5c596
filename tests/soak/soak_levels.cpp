#include "soak_levels.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <utility>

#include "level_list.h"
#include "level_loader.h"
#include "level_writer.h"
#include "loading_list.h"
#include "resource_package.h"

namespace grub {

namespace {

/// Storeys, ladders, holes, pipes, walls, enemies, spawn points and keys in a mixture of its own.
std::vector<std::string> rowsByChance(int width, int height, WorldRandom& random) {
    const auto upTo = [&random](int most) { return random.next() % (most + 1); };
    const auto chance = [&random](int percent) { return random.next() % 100 < percent; };
    const int storey = 2 + upTo(3);  // rows from floor to floor
    const int holes = upTo(12);      // this and the rest are percents of the cells
    const std::pair<const char*, int> things[] = {
        {"HHHHh", 1 + upTo(8)}, {"#", upTo(6)}, {"-", upTo(8)}, {"dlr", 1 + upTo(4)},
        {"s", upTo(2)},         {"k", upTo(2)}, {"E+", 1}};
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
    return rows;
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

std::vector<SoakLevel> packagedLevels() {
    ResourcePackage package(EngineString(GRUB_DATA_DIR "/levels.pak"));
    LevelLoader loader(package);
    loader.loadBlockTypes();
    for (const LoadEntry& entry : loadingList()) {
        if (entry.spriteNumber >= 0)
            loader.spriteNumbers().addSpriteNumber(entry.spriteNumber, static_cast<std::int16_t>(entry.id));
    }
    std::vector<SoakLevel> levels;
    for (int index = 0; index < static_cast<int>(kLevelCount); ++index) {
        const std::string name(kLevelNames[static_cast<std::size_t>(index)]);
        std::string reason;
        if (auto map = loader.load(name, reason)) levels.push_back({name, *std::move(map), index});
    }
    if (levels.empty()) {
        std::cerr << GRUB_DATA_DIR "/levels.pak: no level in it\n";
        std::abort();
    }
    return levels;
}

SoakLevel levelByChance(int number) {
    WorldRandom random(static_cast<std::uint32_t>(number));
    for (int i = 0; i < 3; ++i) random.next();  // neighbouring seeds begin alike
    const bool isLargest = number % 100 == 1;
    const int width = isLargest ? kMaxMapSize : 2 + random.next() % 30;
    const int height = isLargest ? kMaxMapSize : 2 + random.next() % 20;
    std::vector<std::string> rows = rowsByChance(width, height, random);
    keepWithinLimits(rows, "dlr", kMaxEnemies);
    keepWithinLimits(rows, "+", kMaxObjects - kMaxEnemies);
    keepWithinLimits(rows, "s", kMaxSpawnPoints);
    for (const char symbol : {'E', '@'})
        rows[static_cast<std::size_t>(random.next() % height)][static_cast<std::size_t>(random.next() % width)] =
            symbol;
    const int levelIndex = random.next() % 8;  // in one of eight no bonus comes by chance
    return {"map by chance " + std::to_string(number), mapFrom(Drawing(rows)), levelIndex};
}

}  // namespace grub
