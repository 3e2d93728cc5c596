#pragma once

#include "animation_table.h"
#include "frame_strip.h"
#include "renderer.h"
#include "world.h"

namespace grub {

/// The part of the level that the screen shows. As a rule it follows the hero, at once, without easing: he stays
/// between 192 and 544 pixels from the left and between 128 and 344 pixels from the top while the level goes on in that
/// direction.
class Camera {
public:
    /// Back to the level's top-left corner, as each level starts.
    void reset() { *this = {}; }
    /// Puts the level's pixel (x, y) into the screen's top-left corner, wherever the hero is.
    void lookAt(int x, int y) {
        scrollX_ = x;
        scrollY_ = y;
    }
    /// Follows a hero at pixel (heroX, heroY) in a level of `columns` x `rows` cells.
    void follow(int heroX, int heroY, int columns, int rows);

    /// The level's pixel in the screen's top-left corner.
    [[nodiscard]] int scrollX() const { return scrollX_; }
    [[nodiscard]] int scrollY() const { return scrollY_; }
    /// The cell in the screen's top-left corner.
    [[nodiscard]] int firstColumn() const;
    [[nodiscard]] int firstRow() const;

private:
    int scrollX_ = 0;
    int scrollY_ = 0;
};

/// Draws what the camera sees of a level, back to front: map, decorations, bonuses, hero, enemies, front of the map,
/// rising points. Only cells and actors near the screen are drawn. A missing strip is left out; a strip with fewer
/// frames than the rules count keeps its current one.
void drawLevel(const World& world, const Camera& camera, const AnimationTable& animations, Renderer& renderer);

/// How far apart digits stand.
enum class DigitSpacing : int {
    Narrow = 10,  ///< pixels, as on the panel
    Wide = 14     ///< as of points that rise
};

/// Draws a number of 0 or more in decimal, at most its five lowest digits, so that the last one ends at `x`. `font` has
/// the digits 0 to 9 as its frames. Pixels on the screen; nothing is drawn for a place off the screen.
void drawNumber(Renderer& renderer, int x, int y, int value, FrameStrip& font, DigitSpacing spacing);

}  // namespace grub
