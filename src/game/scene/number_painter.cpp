#include "number_painter.h"

namespace grub {

namespace {

constexpr int kMostDigits = 5;
/// Beyond these no digit of any number would show.
constexpr int kFarthestLeft = -64;
constexpr int kFarthestUp = -64;
constexpr int kFarthestRight = 800;
constexpr int kFarthestDown = 600;

}  // namespace

void drawNumber(Renderer& renderer, int x, int y, int value, FrameStrip& font, DigitSpacing spacing) {
    if (x < kFarthestLeft || y < kFarthestUp || x > kFarthestRight || y > kFarthestDown) return;
    int rest = value;
    for (int digit = 0; digit == 0 || (digit < kMostDigits && rest > 0); ++digit) {
        x -= static_cast<int>(spacing);
        font.setFrame(static_cast<std::uint16_t>(rest % 10));
        font.draw(renderer, {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)}, 1.0F);
        rest /= 10;
    }
}

}  // namespace grub
