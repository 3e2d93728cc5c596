#include "win_path.h"

#include "rules.h"
#include "win_measures.h"

namespace grub {

namespace {

Point centreOf(int x, int y) { return {x + kCellSize / 2.0, y + kCellSize / 2.0}; }
Point centreOfCell(CellPosition cell) { return centreOf(cell.x * kCellSize, cell.y * kCellSize); }

}  // namespace

WinPath pathOfWin(const RecordedGame& game, const LevelMap& map, const AnimationFrameCounts& counts) {
    WinPath path;
    path.places.push_back(centreOfCell(map.heroStart()));
    bool wasDigging = false;
    const auto look = [&](const World& world) {
        const Hero& hero = world.hero();
        path.places.push_back(centreOf(hero.x, hero.y));
        const int side = hero.facing() == Facing::Left ? -1 : 1;
        if (hero.isDigging() && !wasDigging) path.digs.push_back(centreOfCell({hero.cellX() + side, hero.cellY() + 1}));
        wasDigging = hero.isDigging();
        for (std::size_t i = path.keys.size(); i < world.collectedKeys().size(); ++i)
            path.keys.push_back(centreOfCell(world.collectedKeys()[i]));
    };
    (void)watchWin(game, map, counts, look);
    return path;
}

}  // namespace grub
