// Ladders that look like slips of the pen.

#include "level_check.h"

namespace grub {

namespace {

BlockType typeAt(const LevelMap& map, int x, int y) {
    return map.contains(x, y) ? map.cellAt(x, y).baseType : BlockType::Inert;
}

bool isRungs(const LevelMap& map, int x, int y) {
    const BlockType type = typeAt(map, x, y);
    return type == BlockType::Ladder || type == BlockType::HiddenLadder;
}

bool isOpen(const LevelMap& map, int x, int y) {
    const BlockType type = typeAt(map, x, y);
    return type != BlockType::Floor && type != BlockType::Solid && type != BlockType::Inert &&
           type != BlockType::InertToo;
}

/// Whether somebody above could dig this cell.
bool canBeDug(const LevelMap& map, int x, int y) {
    return typeAt(map, x, y) == BlockType::Floor && isOpen(map, x, y - 1);
}

}  // namespace

/// A ladder that ends in the air and goes on one column further is one ladder that was drawn with a break.
void checkLadderColumns(const CheckedLevel& level, Faults& faults) {
    const LevelMap& map = level.map;
    eachCellOf(map, [&](CellPosition at) {
        const bool endsInAir = isRungs(map, at.x, at.y) && !isRungs(map, at.x, at.y + 1) && isOpen(map, at.x, at.y + 1);
        if (!endsInAir) return;
        for (const int x : {at.x - 1, at.x + 1})
            if (isRungs(map, x, at.y + 1) && !isRungs(map, x, at.y))
                addFault(faults, at, "the ladder ends here and goes on in the next column");
    });
}

/// Under a lid a ladder is still of use where one can step off it, or where the lid can be dug from above.
void checkLadderTops(const CheckedLevel& level, Faults& faults) {
    const LevelMap& map = level.map;
    eachCellOf(map, [&](CellPosition at) {
        const bool isTop = isRungs(map, at.x, at.y) && !isRungs(map, at.x, at.y - 1);
        if (!isTop || at.y == 0 || isOpen(map, at.x, at.y - 1) || canBeDug(map, at.x, at.y - 1)) return;
        if (!isOpen(map, at.x - 1, at.y) && !isOpen(map, at.x + 1, at.y))
            addFault(faults, at, "the ladder's top is shut: a lid above it and no way to either side");
    });
}

}  // namespace grub
