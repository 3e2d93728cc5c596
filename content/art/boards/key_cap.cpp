#include "key_cap.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>

#include "board_looks.h"
#include "fittings.h"

namespace grub {

namespace {

constexpr double kSideRoom = 7;
constexpr double kNarrowest = 26;

//                                                  base      shadow    light     gloss rim   bump grain
constexpr Material kCapFace = boardMaterial(0xfff8e6, 0xd8bf93, 0xffffff, 0.1F, 0.1F, 0, 0);
constexpr Material kCapSide = boardMaterial(0xcfae7d, 0x8f6b4c, 0xe8cfa2, 0.1F, 0.2F, 0, 0);

/// The way an arrow key points, in radians clockwise from the right.
std::optional<double> arrowAngle(std::string_view key) {
    constexpr std::array kWays{std::pair{"Right", 0.0}, std::pair{"Down", 0.5}, std::pair{"Left", 1.0},
                               std::pair{"Up", 1.5}};
    const auto* way = std::ranges::find_if(kWays, [key](const auto& w) { return key == w.first; });
    if (way == kWays.end()) return std::nullopt;
    return way->second * std::numbers::pi;
}

}  // namespace

double keyCapWidth(const Font& font, std::string_view key) {
    return arrowAngle(key) ? kNarrowest : std::max(kNarrowest, std::ceil(font.width(key) + 2 * kSideRoom));
}

void drawKeyCap(Canvas& canvas, const Rect& area, const Font& font, std::string_view key) {
    const Rect body = area.inset(1.2);
    const double unit = area.height / kCapHeight;
    const Rect face{body.x + 1.4 * unit, body.y + 0.6 * unit, body.width - 2.8 * unit, body.height - 4 * unit};
    canvas.part(body.path(6 * unit), kCapSide, {.bevel = 2.5 * unit, .line = 1.2, .shadow = 0.4F});
    canvas.part(face.path(5 * unit), kCapFace, {.bevel = 2 * unit, .line = 0.5, .shadow = 0});
    const Point middle{area.centre().x, area.y + kCapFaceMiddle * unit};
    if (const auto angle = arrowAngle(key)) {
        canvas.flat(arrowHead(middle, 10 * unit, *angle), kBoardInk);
    } else {
        const double baseline = std::round(middle.y + font.capHeight() / 2);
        canvas.flat(font.line(key, {middle.x, baseline}, Align::Centre), kBoardInk);
    }
}

}  // namespace grub
