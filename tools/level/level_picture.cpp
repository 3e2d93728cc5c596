#include "level_picture.h"

#include <algorithm>

#include "image_renderer.h"
#include "level_view.h"
#include "loading_list.h"
#include "rules.h"
#include "world.h"

namespace grub {

namespace {

/// Copies `screen` to (left, top) of `page`, as far as the page goes.
void copyTo(PixelImage& page, const PixelImage& screen, int left, int top) {
    const int columns = std::min(screen.width, page.width - left);
    for (int y = 0; y < std::min(screen.height, page.height - top); ++y)
        std::copy_n(screen.row(y), columns, page.row(top + y) + left);
}

/// Screen by screen. They start at whole cells: a screen draws all of its cells only then, since it leaves those out
/// that the game's panel covers.
PixelImage drawScreens(const World& world, const AnimationTable& animations, ImageRenderer& renderer) {
    PixelImage page(world.map().width() * kCellSize, world.map().height() * kCellSize);
    const int across = renderer.screen().width / kCellSize * kCellSize;
    const int down = renderer.screen().height / kCellSize * kCellSize;
    Camera camera;
    for (int top = 0; top < page.height; top += down) {
        for (int left = 0; left < page.width; left += across) {
            camera.lookAt(left, top);
            renderer.beginFrame();
            drawLevel(world, camera, animations, renderer);
            renderer.endFrame();
            copyTo(page, renderer.screen(), left, top);
        }
    }
    return page;
}

}  // namespace

LevelPicture drawLevelPicture(const LevelMap& map, ResourceSource& pictures) {
    LevelPicture picture;
    ImageRenderer renderer;
    SpriteNumbers numbers;  // the map has been built: its cells know their animations
    AnimationTable animations(pictures, numbers);
    for (const LoadEntry& entry : loadingList())
        if (!animations.add(entry)) picture.missing.push_back(entry.path());
    World world(map, {}, animations.frameCounts());
    world.step();  // settles the level; the game does not show it before
    picture.image = drawScreens(world, animations, renderer);
    return picture;
}

}  // namespace grub
