#pragma once

#include <string>
#include <vector>

#include "level_map.h"

namespace grub {

/// A level to play at random.
struct SoakLevel {
    std::string name;  // in the level list, or which drawing by chance it is
    LevelMap map;
    int levelIndex;
};

/// All levels of this build's package. Aborts when the package has none.
[[nodiscard]] std::vector<SoakLevel> packagedLevels();

/// A map drawn by chance, the same for the same number: storeys, holes, ladders, pipes, walls, keys, enemies and spawn
/// points in any mixture.
[[nodiscard]] SoakLevel levelByChance(int number);

}  // namespace grub
