#include "camera.h"

#include <algorithm>

#include "rules.h"

namespace grub {
namespace {

// The band of the screen, in pixels, that the hero may cross before the view moves.
constexpr int kLeft = 192;
constexpr int kRight = 544;
constexpr int kTop = 128;
constexpr int kBottom = 344;

constexpr int kScreenWidth = 800;
constexpr int kScreenHeight = 600;
constexpr int kPanelHeight = 64;  // the panel covers the bottom of the screen, so the level may end above it
constexpr int kFewestColumnsThatScroll = 14;

int follow(int scroll, int hero, int nearEdge, int farEdge) {
    if (hero < scroll + nearEdge) scroll = hero - nearEdge;
    if (hero > scroll + farEdge) scroll = hero - farEdge;
    return scroll;
}

}  // namespace

void Camera::follow(int heroX, int heroY, int columns, int rows) {
    const int targetX = grub::follow(scrollX_, heroX, kLeft, kRight);
    const int targetY = grub::follow(scrollY_, heroY, kTop, kBottom);
    const int lastX = columns * kCellSize - kScreenWidth;
    const int lastY = rows * kCellSize - (kScreenHeight - kPanelHeight);
    scrollX_ = targetX < 1 || columns < kFewestColumnsThatScroll ? 0 : std::min(targetX, lastX);
    scrollY_ = targetY < 1 || rows * kCellSize <= kScreenHeight ? 0 : std::min(targetY, lastY);
}

int Camera::firstColumn() const { return scrollX_ / kCellSize; }

int Camera::firstRow() const { return scrollY_ / kCellSize; }

}  // namespace grub
