// A cell behaves as its character says, and every picture that it may show is there.

#include <algorithm>
#include <set>
#include <string>

#include "level_check.h"
#include "loading_list.h"

namespace grub {

namespace {

/// What a block family without a legend promises.
struct FamilyType {
    std::string_view family;
    BlockType type;
};
constexpr FamilyType kFamilyTypes[] = {
    {"wall", BlockType::Empty},    {"floor", BlockType::Floor},         {"solid", BlockType::Solid},
    {"ladder", BlockType::Ladder}, {"hidden", BlockType::HiddenLadder}, {"pipe", BlockType::Pipe},
    {"door", BlockType::Exit},     {"spawn", BlockType::SpawnPoint},
};

/// How a character of the playing field says that its cell behaves.
BlockType promisedBy(char character, const CheckedLevel& level) {
    const auto own = level.source.legend.find(character);
    if (own != level.source.legend.end()) {
        const Block* block = level.palette.find(level.source.world, own->second.family);
        return blockTypeOf(block->type);  // a legend without a block is refused before
    }
    const FieldCharacter* known = fieldCharacter(character);
    return std::ranges::find(kFamilyTypes, known->family, &FamilyType::family)->type;
}

BlockType builtAs(const MapCell& cell) { return cell.isSpawnPoint ? BlockType::SpawnPoint : cell.baseType; }

std::string fileOf(int animation) {
    const auto found = std::ranges::find(loadingList(), animation, &LoadEntry::id);
    return found == loadingList().end() ? "animation " + std::to_string(animation) : found->path();
}

/// Tells once of each picture that is missing.
class PictureFinder {
public:
    PictureFinder(const AnimationFrameCounts& counts, Faults& faults) : counts_(counts), faults_(faults) {}

    void look(CellPosition at, const MapCell& cell) {
        for (const int shown : {cell.sprite, cell.baseSprite}) want(at, shown);
        for (const int below : {cell.fireSprite, cell.rostSprite, cell.fonSprite})
            if (below != kNoSprite) want(at, below);
        for (const int layer : {cell.layer2Sprite, cell.layer3Sprite, cell.layer4Sprite, cell.layer5Sprite})
            if (layer != 0) want(at, layer);
    }

private:
    void want(CellPosition at, int animation) {
        if (counts_.of(animation) > 0 || !told_.insert(animation).second) return;
        addFault(faults_, at,
                 animation == kNoSprite ? "a picture without a number in the loading list"
                                        : "the picture " + fileOf(animation) + " is missing");
    }

    const AnimationFrameCounts& counts_;
    Faults& faults_;
    std::set<int> told_;
};

}  // namespace

void checkTypes(const CheckedLevel& level, Faults& faults) {
    eachCellOf(level.map, [&](CellPosition at) {
        const char character = level.source.field[static_cast<std::size_t>(at.y)][static_cast<std::size_t>(at.x)];
        if (builtAs(level.map.cellAt(at.x, at.y)) != promisedBy(character, level))
            addFault(faults, at,
                     std::string("a block below the field makes this cell behave otherwise than '") + character + "'");
    });
}

void checkPictures(const CheckedLevel& level, Faults& faults) {
    PictureFinder finder(level.counts, faults);
    eachCellOf(level.map, [&](CellPosition at) {
        const MapCell& cell = level.map.cellAt(at.x, at.y);
        finder.look(at, cell);
        if (cell.baseType == BlockType::Floor && (cell.fireSprite == kNoSprite || cell.rostSprite == kNoSprite))
            addFault(faults, at, "a floor without pictures that break and grow back");
        const bool appears = cell.baseType == BlockType::Exit || cell.baseType == BlockType::HiddenLadder;
        if (appears && cell.rostSprite == kNoSprite)
            addFault(faults, at, "a door or a hidden ladder without the picture that appears");
    });
}

}  // namespace grub
