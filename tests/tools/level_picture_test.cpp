#include "level_picture.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "animation_id.h"
#include "bmp_writer.h"
#include "loading_list.h"
#include "map_cell.h"
#include "memory_source.h"
#include "rules.h"

namespace grub {
namespace {

constexpr Pixel kRed{200, 0, 0, 255};
constexpr Pixel kGreen{0, 200, 0, 255};
constexpr Pixel kGlass{0, 0, 100, 51};         // a fifth opaque
constexpr Pixel kGlassOnRed{160, 0, 20, 255};  // 200 * 4/5, 100 / 5
constexpr Pixel kKey{kBrown.r, kBrown.g, kBrown.b, 0};

/// A frame whose halves have one colour each.
PixelImage halves(Pixel left, Pixel right) {
    PixelImage frame(kCellSize, kCellSize);
    for (int y = 0; y < kCellSize; ++y)
        for (int x = 0; x < kCellSize; ++x) frame.at(x, y) = x < kCellSize / 2 ? left : right;
    return frame;
}

Bytes withoutAlpha(const PixelImage& image) {
    Bytes rgb;
    for (const Pixel& pixel : image.pixels) rgb.insert(rgb.end(), {pixel.r, pixel.g, pixel.b});
    return writeBmp(static_cast<unsigned>(image.width), static_cast<unsigned>(image.height), rgb);
}

void put(PixelImage& page, const PixelImage& frame, int column, int row) {
    for (int y = 0; y < kCellSize; ++y)
        std::copy_n(frame.row(y), kCellSize, &page.at(column * kCellSize, row * kCellSize + y));
}

TEST(LevelPicture, ShowsAllOfALevelThatIsLargerThanTheScreen) {
    MemorySource pictures;
    pictures.put("data\\gif\\steny\\modul.bmp", bmpBytes(halves(kRed, kRed)));
    pictures.put("data\\gif\\grub\\ani_08.bmp", withoutAlpha(halves(kKey, kGreen)));  // left is the colour key
    pictures.put("data\\gif\\kam_right.bmp", bmpBytes(halves(kGreen, kGlass)));       // is mirrored
    LevelMap map(13, 29);
    map.setHeroStart({12, 28});
    map.addObject({12, 9, object_code::kTorchRight});  // where four screens meet

    const LevelPicture picture = drawLevelPicture(map, pictures);

    PixelImage wanted(13 * kCellSize, 29 * kCellSize);
    std::fill(wanted.pixels.begin(), wanted.pixels.end(), kRed);
    put(wanted, halves(kRed, kGreen), 12, 28);
    put(wanted, halves(kGlassOnRed, kGreen), 12, 9);
    EXPECT_TRUE(picture.image == wanted);
    EXPECT_EQ(picture.missing.size(), loadingList().size() - 4) << "the hero's picture serves two rows of the list";
}

}  // namespace
}  // namespace grub
