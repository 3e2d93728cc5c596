#include "soak_levels.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "level_list.h"
#include "level_loader.h"
#include "level_writer.h"
#include "loading_list.h"
#include "resource_package.h"

namespace grub {

namespace {

/// Where a map by chance has what, in percent of its cells unless said otherwise.
struct Mixture {
    int storey;  // rows from floor to floor
    int floorHoles;
    int ladders;  // that begin in a cell; each goes down with a chance of 3 in 4
    int pipes;
    int walls;
    int enemies;
    int spawnPoints;
    int keys;
    bool ground;  // the last row is a floor
};

Mixture mixtureFrom(WorldRandom& random) {
    const auto upTo = [&random](int most) { return random.next() % (most + 1); };
    return {2 + upTo(3), upTo(12), 1 + upTo(8), upTo(8), upTo(6), 1 + upTo(4), upTo(2), upTo(2), upTo(2) > 0};
}

char symbolFor(const Mixture& mixture, int row, char above, WorldRandom& random) {
    const auto chance = [&random](int percent) { return random.next() % 100 < percent; };
    if (above == 'H' && chance(75)) return 'H';
    if (chance(mixture.ladders)) return chance(80) ? 'H' : 'h';
    if (chance(mixture.walls)) return '#';
    if (row % mixture.storey == mixture.storey - 1 && !chance(mixture.floorHoles)) return '=';
    if (chance(mixture.pipes)) return '-';
    if (chance(mixture.enemies)) return "dlr"[random.next() % 3];
    if (chance(mixture.spawnPoints)) return 's';
    if (chance(mixture.keys)) return 'k';
    return chance(1) ? "E+"[random.next() % 2] : '.';
}

std::vector<std::string> rowsByChance(int width, int height, WorldRandom& random) {
    const Mixture mixture = mixtureFrom(random);
    std::vector<std::string> rows(1, std::string(static_cast<std::size_t>(width), '.'));  // above the first row
    for (int y = 0; y < height; ++y) {
        std::string row;
        for (const char above : rows.back()) row += symbolFor(mixture, y, above, random);
        rows.push_back(row);
    }
    rows.erase(rows.begin());
    if (mixture.ground) std::ranges::fill(rows.back(), '=');
    return rows;
}

/// Takes things away that a level has no room for: from the last of them on.
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
