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

/// A level of any size that is drawn by chance, the same for the same number. See drawingByChance.
[[nodiscard]] SoakLevel levelByChance(int number);

}  // namespace grub
