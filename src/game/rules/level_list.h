#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "rules.h"

namespace grub {

/// Where the levels package has its files.
inline constexpr std::string_view kLevelFolder = "levels\\";

/// A world: levels that look alike.
struct LevelWorld {
    std::string_view name;   ///< folder of its levels in the package, and first word of the names of its blocks
    std::size_t levelCount;  ///< levels of the list that belong to it
};

/// The worlds in the order in which they are played: the stone prison, the iron works, the cellar.
inline constexpr std::array kLevelWorlds{LevelWorld{"turma", 20}, LevelWorld{"jelezo", 15}, LevelWorld{"podval", 15}};

/// The level files in the order in which they are played, world by world. Inside a world the order is not that of the
/// names.
inline constexpr std::array<std::string_view, kLevelCount> kLevelNames{
    "levels\\turma\\level01.lvl",  "levels\\turma\\level02.lvl",  "levels\\turma\\level05.lvl",
    "levels\\turma\\level04.lvl",  "levels\\turma\\level03.lvl",  "levels\\turma\\level06.lvl",
    "levels\\turma\\level08.lvl",  "levels\\turma\\level09.lvl",  "levels\\turma\\level10.lvl",
    "levels\\turma\\level11.lvl",  "levels\\turma\\level12.lvl",  "levels\\turma\\level13.lvl",
    "levels\\turma\\level14.lvl",  "levels\\turma\\level15.lvl",  "levels\\turma\\level16.lvl",
    "levels\\turma\\level17.lvl",  "levels\\turma\\level19.lvl",  "levels\\turma\\level20.lvl",
    "levels\\turma\\level21.lvl",  "levels\\turma\\level22.lvl",  "levels\\jelezo\\level01.lvl",
    "levels\\jelezo\\level02.lvl", "levels\\jelezo\\level03.lvl", "levels\\jelezo\\level04.lvl",
    "levels\\jelezo\\level05.lvl", "levels\\jelezo\\level06.lvl", "levels\\jelezo\\level07.lvl",
    "levels\\jelezo\\level08.lvl", "levels\\jelezo\\level09.lvl", "levels\\jelezo\\level10.lvl",
    "levels\\jelezo\\level11.lvl", "levels\\jelezo\\level12.lvl", "levels\\jelezo\\level13.lvl",
    "levels\\jelezo\\level14.lvl", "levels\\jelezo\\level15.lvl", "levels\\podval\\level01.lvl",
    "levels\\podval\\level02.lvl", "levels\\podval\\level03.lvl", "levels\\podval\\level04.lvl",
    "levels\\podval\\level05.lvl", "levels\\podval\\level06.lvl", "levels\\podval\\level07.lvl",
    "levels\\podval\\level08.lvl", "levels\\podval\\level09.lvl", "levels\\podval\\level10.lvl",
    "levels\\podval\\level11.lvl", "levels\\podval\\level12.lvl", "levels\\podval\\level15.lvl",
    "levels\\podval\\level14.lvl", "levels\\podval\\level13.lvl"};

/// The world of a place in the list, 0 to 49.
[[nodiscard]] constexpr const LevelWorld& worldOfLevel(std::size_t index) {
    std::size_t world = 0;
    for (; index >= kLevelWorlds[world].levelCount; ++world) index -= kLevelWorlds[world].levelCount;
    return kLevelWorlds[world];
}

static_assert(
    [] {
        for (std::size_t index = 0; index < kLevelNames.size(); ++index)
            if (!kLevelNames[index].substr(kLevelFolder.size()).starts_with(worldOfLevel(index).name)) return false;
        return true;
    }(),
    "a level stands in the folder of another world");

/// The name of the block table in the levels package.
inline constexpr std::string_view kBlockTableName = "levels\\typeblok.ini";

}  // namespace grub
