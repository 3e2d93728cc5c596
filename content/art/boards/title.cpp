#include "title.h"

#include <algorithm>
#include <cmath>

#include "board_looks.h"

namespace grub {

namespace {

/// In ems: how much letters are grown, their line, the rounding of their edges, the air between them.
constexpr double kGrowth = 0.022;
constexpr double kLine = 0.030;
constexpr double kBevel = 0.115;
constexpr double kTracking = 0.045;

/// The name of the game, in ems: its letters nearly touch, and the highest stands this much above the lowest.
constexpr double kNameTracking = -0.004;
constexpr double kDance = 0.11;
/// The most that one of its letters leans, in radians.
constexpr double kLean = 0.06;

constexpr std::string_view kGameName = "Grubaway";
/// Letters of the name before the second colour.
constexpr std::size_t kNameBreak = 4;

//                                                        base      shadow    light     gloss  rim  bump grain
constexpr Material kTitleGold = boardMaterial(0xffb92f, 0xc4501f, 0xfff0a8, 0.85F, 0.5F, 0, 0);
constexpr Material kTitleTeal = boardMaterial(0x35c3b0, 0x12617a, 0xd2fff0, 0.85F, 0.5F, 0, 0);

/// A letter with its pen on its own baseline, turned about its own middle.
struct Placed {
    std::string_view letter;
    Point pen;
    double width;
    double lean;
    bool second;
};

double trackingOf(std::string_view text) { return text == kGameName ? kNameTracking : kTracking; }

/// The letters from the pen at `start`, which ends behind the last one.
std::vector<Placed> lettersOf(const Font& font, std::string_view text, Point start) {
    const bool name = text == kGameName;
    std::vector<Placed> letters;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view letter = text.substr(i, 1);
        const double width = font.width(letter);
        const double before = font.width(text.substr(0, i + 1)) - width;
        const auto n = static_cast<double>(i);
        const Point pen = start + Point{before + n * trackingOf(text) * font.size(), 0};
        const Point dance = name ? Point{0, kDance / 2 * font.size() * std::sin(1.1 * n + 0.4)} : Point{};
        const double lean = name ? -kLean * std::sin(2.3 * n) : 0;
        letters.push_back({letter, pen + dance, width, lean, name && i >= kNameBreak});
    }
    return letters;
}

void drawLetter(Canvas& canvas, const Font& font, const Placed& p, bool ground) {
    const double size = font.size();
    const Point middle{p.width / 2, -font.xHeight() / 2};
    const auto turned = canvas.bent(p.pen + middle, p.lean);
    const VectorPath outline = font.line(p.letter, p.pen);
    if (ground) {
        const auto lower = canvas.placed({0, size * 0.035});
        canvas.flat(plump(outline, size * (kGrowth + kLine)), kBoardInk);
        return;
    }
    canvas.part(plump(outline, size * kGrowth), p.second ? kTitleTeal : kTitleGold,
                {.bevel = size * kBevel, .line = size * kLine, .shadow = 0.5F});
}

}  // namespace

Fit drawTitle(Canvas& canvas, const Words& words) {
    const Font font(words.face, words.size);
    const double edge = words.size * (kGrowth + kLine);
    const double tracking =
        trackingOf(words.text) * words.size * std::max(0.0, static_cast<double>(words.text.size()) - 1);
    const double width = font.width(words.text) + tracking;
    const double depth = font.depth(words.text);
    const double height = font.capHeight() + depth + (words.text == kGameName ? kDance * words.size : 0);
    const double x = words.area.x + (words.area.width - width) * shareBefore(words.align);
    const double y = std::round(words.area.centre().y + font.capHeight() / 2 - depth * 0.4);
    const auto letters = lettersOf(font, words.text, {x, y});
    // The dark ground of all letters lies below all letters.
    for (const bool ground : {true, false}) {
        for (const Placed& letter : letters) drawLetter(canvas, font, letter, ground);
    }
    return {std::max(0.0, width + 2 * edge - words.area.width), std::max(0.0, height + 2 * edge - words.area.height),
            font.missing(words.text)};
}

}  // namespace grub
