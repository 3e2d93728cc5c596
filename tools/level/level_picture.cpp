#include "level_picture.h"

#include <png.h>
#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "image_decoder.h"
#include "loading_list.h"
#include "map_cell.h"
#include "rules.h"
#include "whole_file.h"

namespace grub {

namespace {

const LoadEntry* entryOf(int animationId) {
    const auto list = loadingList();
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const LoadEntry& entry) { return entry.id == animationId; });
    return found == list.end() ? nullptr : &*found;
}

std::filesystem::path fileOf(const LoadEntry& entry) {
    std::string stem(entry.stem);
    std::replace(stem.begin(), stem.end(), '\\', '/');
    return stem + ".bmp";
}

bool isKey(const std::uint8_t* rgb, Colour key) { return rgb[0] == key.r && rgb[1] == key.g && rgb[2] == key.b; }

/// The top `height` rows of a decoded picture; `alpha` may be empty, then the colour key decides.
RgbaPicture topRows(const SharedBuffer& rgb, const SharedBuffer& alpha, int width, int height, Colour key) {
    RgbaPicture frame{width, height, {}};
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    frame.rgba.reserve(4 * pixels);
    for (std::size_t i = 0; i < pixels; ++i) {
        const std::uint8_t* colour = rgb.data() + 3 * i;
        frame.rgba.insert(frame.rgba.end(), colour, colour + 3);
        frame.rgba.push_back(alpha.empty() ? (isKey(colour, key) ? 0 : 255) : alpha.data()[i]);
    }
    return frame;
}

void mirror(RgbaPicture& picture) {
    const auto columns = static_cast<std::ptrdiff_t>(picture.width);
    for (std::ptrdiff_t row = 0; row < picture.height; ++row)
        for (std::ptrdiff_t left = 0, right = columns - 1; left < right; ++left, --right)
            std::swap_ranges(picture.rgba.begin() + 4 * (row * columns + left),
                             picture.rgba.begin() + 4 * (row * columns + left) + 4,
                             picture.rgba.begin() + 4 * (row * columns + right));
}

std::uint8_t mix(std::uint8_t under, std::uint8_t over, unsigned alpha) {
    return static_cast<std::uint8_t>((over * alpha + under * (255 - alpha) + 127) / 255);
}

struct CodePicture {
    std::uint16_t code;
    int animationId;
};

/// The animation that shows an object of a level at the start.
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
class MapPainter {
public:
    MapPainter(const LevelMap& map, PictureBook& book)
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

const RgbaPicture& PictureBook::firstFrame(int animationId) {
    const auto found = frames_.find(animationId);
    return found != frames_.end() ? found->second : frames_.emplace(animationId, read(animationId)).first->second;
}

RgbaPicture PictureBook::read(int animationId) const {
    const LoadEntry* entry = entryOf(animationId);
    if (entry == nullptr || folder_.empty()) return {};
    const auto bytes = readWholeFile(folder_ / fileOf(*entry));
    if (!bytes || !pictureDecodes(*bytes, nullptr)) return {};
    const auto decoder =
        createImageDecoder(SharedBuffer::view(bytes->data(), static_cast<std::uint32_t>(bytes->size())));
    SharedBuffer rgb;
    SharedBuffer alpha;
    if (decoder == nullptr || !decoder->decode(rgb, alpha)) return {};
    const int height = std::min<int>(decoder->height(), entry->frameHeight);
    RgbaPicture frame = topRows(rgb, alpha, decoder->width(), height, entry->colourKey);
    if (entry->transform == TextureTransform::FlipHorizontal) mirror(frame);
    return frame;
}

void blend(RgbaPicture& page, const RgbaPicture& picture, int x, int y) {
    const auto at = [](const RgbaPicture& of, int column, int row) {
        return 4 *
               (static_cast<std::size_t>(row) * static_cast<std::size_t>(of.width) + static_cast<std::size_t>(column));
    };
    for (int row = std::max(0, -y); row < std::min(picture.height, page.height - y); ++row) {
        for (int column = std::max(0, -x); column < std::min(picture.width, page.width - x); ++column) {
            const std::uint8_t* over = &picture.rgba[at(picture, column, row)];
            std::uint8_t* under = &page.rgba[at(page, column + x, row + y)];
            for (int channel = 0; channel < 3; ++channel) under[channel] = mix(under[channel], over[channel], over[3]);
        }
    }
}

bool writePng(const std::filesystem::path& path, const RgbaPicture& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGBA;
    return png_image_write_to_file(&image, path.c_str(), 0, picture.rgba.data(), 0, nullptr) != 0;
}

RgbaPicture drawLevel(const LevelMap& map, PictureBook& book) { return MapPainter(map, book).paint(); }

}  // namespace grub
