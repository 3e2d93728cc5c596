#include "soak_levels.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "drawing_by_chance.h"
#include "level_list.h"
#include "level_loader.h"
#include "loading_list.h"
#include "resource_package.h"

namespace grub {

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
    LevelMap map = mapFrom(drawingByChance(width, height, false, random));
    const int levelIndex = random.next() % 8;  // in one of eight no bonus comes by chance
    return {"map by chance " + std::to_string(number), std::move(map), levelIndex};
}

}  // namespace grub
