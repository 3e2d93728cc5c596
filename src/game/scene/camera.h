#pragma once

namespace grub {

/// The part of the level that the screen shows. It follows the hero at once, without easing: he stays between 192 and
/// 544 pixels from the left and between 128 and 344 pixels from the top while the level goes on in that direction.
class Camera {
public:
    /// Back to the level's top-left corner, as each level starts.
    void reset() { *this = {}; }
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

}  // namespace grub
