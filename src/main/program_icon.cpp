#include "program_icon.h"

#include <cstdint>
#include <vector>

#include "desktop/icons.h"

namespace grub {
namespace {

constexpr int kSize = 32;
constexpr std::uint16_t kIconNumber = 101;

constexpr std::uint32_t kNothing = 0x00000000;
constexpr std::uint32_t kOutline = 0xFF3A2410;
constexpr std::uint32_t kHelmet = 0xFFE0A020;
constexpr std::uint32_t kHelmetLight = 0xFFFFD060;
constexpr std::uint32_t kBrim = 0xFFB87818;
constexpr std::uint32_t kLamp = 0xFFFFFFE0;

/// Whether the centre of pixel (x, y) lies in the ellipse; all in half pixels, so that whole numbers do.
constexpr bool inEllipse(int x, int y, int centreX, int centreY, int radiusX, int radiusY) {
    const int dx = (2 * x + 1 - centreX) * radiusY;
    const int dy = (2 * y + 1 - centreY) * radiusX;
    return dx * dx + dy * dy <= radiusX * radiusY * radiusX * radiusY;
}

/// A miner's helmet from the front: dome, brim, and a lamp in the middle.
constexpr std::uint32_t helmetPixel(int x, int y) {
    if (inEllipse(x, y, 32, 30, 9, 9)) return kLamp;
    if (inEllipse(x, y, 32, 30, 13, 13)) return kOutline;
    if (inEllipse(x, y, 32, 46, 29, 7)) return kBrim;
    if (inEllipse(x, y, 32, 46, 32, 10)) return kOutline;
    if (y < 24 && inEllipse(x, y, 24, 24, 6, 8)) return kHelmetLight;
    if (y < 24 && inEllipse(x, y, 32, 44, 23, 35)) return kHelmet;
    if (y < 24 && inEllipse(x, y, 32, 44, 26, 38)) return kOutline;
    return kNothing;
}

}  // namespace

void offerProgramIcon() {
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < kSize; ++y) {
        for (int x = 0; x < kSize; ++x) pixels.push_back(helmetPixel(x, y));
    }
    platform::setIconResource(kIconNumber, pixels, kSize, kSize);
}

}  // namespace grub
