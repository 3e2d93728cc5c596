#include "level_picture.h"

#include <algorithm>
#include <array>

#include "object_code.h"
#include "rules.h"

namespace grub {

namespace {

struct CodePicture {
    std::uint16_t code;
    int animationId;
};

/// What stands still in a level, by object code: hero and enemies as they look at the start.
constexpr std::array kActors{CodePicture{object_code::kHero, 333}, CodePicture{object_code::kDog, 90},
                             CodePicture{object_code::kRat, 110}, CodePicture{object_code::kLady, 103}};
constexpr std::array kItems{CodePicture{object_code::kHeart, 129}, CodePicture{object_code::kDrops, 128},
                            CodePicture{object_code::kTorchLeft, 126}, CodePicture{object_code::kTorchRight, 127}};
constexpr std::array kKeys{CodePicture{object_code::kHangingKey, 97}, CodePicture{object_code::kKey, 98}};
constexpr std::array kLamps{CodePicture{object_code::kLongLamp, 118}, CodePicture{object_code::kShortLamp, 119}};

/// Plain colours for cells without a picture, by block type.
constexpr std::array<std::array<std::uint8_t, 3>, 10> kPlainColours{{{40, 48, 80},
                                                                     {176, 115, 92},
                                                                     {217, 162, 85},
                                                                     {208, 138, 76},
                                                                     {90, 30, 90},
                                                                     {139, 147, 174},
                                                                     {100, 90, 70},
                                                                     {90, 30, 90},
                                                                     {90, 160, 90},
                                                                     {60, 60, 110}}};

RgbaPicture plainCell(BlockType type) {
    RgbaPicture cell{kCellSize, kCellSize, {}};
    const auto& colour = kPlainColours[static_cast<std::size_t>(type)];
    for (int i = 0; i < kCellSize * kCellSize; ++i)
        cell.rgba.insert(cell.rgba.end(), {colour[0], colour[1], colour[2], 255});
    return cell;
}

/// Draws onto one page, layer by layer over the whole map, in the order of the game.
class LevelPainter {
public:
    LevelPainter(const LevelMap& map, PictureBook& book)
        : map_(map), book_(book), page_{map.width() * kCellSize, map.height() * kCellSize, {}} {
        for (int i = 0; i < page_.width * page_.height; ++i) page_.rgba.insert(page_.rgba.end(), {0, 0, 0, 255});
    }

    RgbaPicture paint() {
        eachCell([this](int x, int y, const MapCell& cell) { paintBack(x, y, cell); });
        eachCell([this](int x, int y, const MapCell& cell) { paintCode(x, y, cell.code, kItems); });
        eachCell([this](int x, int y, const MapCell& cell) { paintCode(x, y, cell.code, kActors); });
        eachCell([this](int x, int y, const MapCell& cell) {
            paintLayer(x, y, cell.layer5Sprite);
            paintCode(x, y, cell.code, kLamps);
        });
        return std::move(page_);
    }

private:
    template <class Action>
    void eachCell(Action action) {
        for (int y = 0; y < map_.height(); ++y)
            for (int x = 0; x < map_.width(); ++x) action(x, y, map_.cellAt(x, y));
    }

    void paintBack(int x, int y, const MapCell& cell) {
        const BlockType type = cell.isExit ? BlockType::Exit : cell.baseType;
        if (cell.fonSprite >= 0) paintSprite(x, y, cell.fonSprite);
        if (cell.sprite < 0 || !paintSprite(x, y, cell.sprite))
            blend(page_, plainCell(type), x * kCellSize, y * kCellSize);
        for (const int layer : {cell.layer3Sprite, cell.layer4Sprite, cell.layer2Sprite}) paintLayer(x, y, layer);
        paintCode(x, y, cell.code, kKeys);
    }

    void paintLayer(int x, int y, int animationId) {
        if (animationId > 0) paintSprite(x, y, animationId);
    }

    bool paintSprite(int x, int y, int animationId) {
        const RgbaPicture& picture = book_.firstFrame(animationId);
        blend(page_, picture, x * kCellSize, y * kCellSize);
        return !picture.empty();
    }

    void paintCode(int x, int y, std::uint16_t code, std::span<const CodePicture> pictures) {
        for (const CodePicture& picture : pictures)
            if (picture.code == code) paintSprite(x, y, picture.animationId);
    }

    const LevelMap& map_;
    PictureBook& book_;
    RgbaPicture page_;
};

}  // namespace

RgbaPicture drawLevel(const LevelMap& map, PictureBook& book) { return LevelPainter(map, book).paint(); }

}  // namespace grub
