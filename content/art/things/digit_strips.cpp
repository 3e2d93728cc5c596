#include "things_room.h"

#include <array>

#include "shapes.h"

namespace grub {

namespace {

/// The middle line of each digit in a box 6 wide and 10 high.
VectorPath digitLine(int digit) {
    switch (digit) {
        case 0:
            return loop({{3, 0},
                         {5.4, 0},
                         {6, 2.4},
                         {6, 5},
                         {6, 7.6},
                         {5.4, 10},
                         {3, 10},
                         {0.6, 10},
                         {0, 7.6},
                         {0, 5},
                         {0, 2.4},
                         {0.6, 0},
                         {3, 0}});
        case 1: return polyline({{1.2, 1.8}, {3.6, 0}, {3.6, 10}});
        case 2:
            return curve({{0.2, 2.6},
                          {0.2, 0.8},
                          {1.6, 0},
                          {3, 0},
                          {4.8, 0},
                          {5.9, 1.2},
                          {5.9, 2.9},
                          {5.9, 5.2},
                          {2, 7.4},
                          {0.2, 10},
                          {2, 10},
                          {4, 10},
                          {6, 10}});
        case 3:
            return curve({{0.4, 0.9},
                          {1.4, 0},
                          {5.6, -0.8},
                          {5.6, 2.5},
                          {5.6, 4.4},
                          {4, 4.9},
                          {2.4, 4.9},
                          {4.6, 4.9},
                          {6, 5.8},
                          {6, 7.4},
                          {6, 10.6},
                          {1.4, 10.6},
                          {0.1, 9}});
        case 4: return polyline({{4.4, 10}, {4.4, 0}, {0, 7.1}, {6.2, 7.1}});
        case 5:
            return curve({{5.6, 0},
                          {4, 0},
                          {2.2, 0},
                          {0.7, 0},
                          {0.6, 1.6},
                          {0.5, 3},
                          {0.4, 4.5},
                          {1.6, 3.6},
                          {6, 3},
                          {6, 6.7},
                          {6, 10.8},
                          {1.2, 10.6},
                          {0.1, 9}});
        case 6: {
            VectorPath six = ellipse({3, 6.8}, 3, 3.2);
            return six.unite(curve({{4.9, 0}, {2, 1.2}, {0, 3.6}, {0, 6.8}}));
        }
        case 7: return polyline({{0, 0}, {6, 0}, {2.2, 10}});
        case 8: {
            VectorPath eight = ellipse({3, 2.4}, 2.5, 2.4);
            return eight.unite(ellipse({3, 7.3}, 3, 2.7));
        }
        default: {
            VectorPath nine = ellipse({3, 3.2}, 3, 3.2);
            return nine.unite(curve({{1.1, 10}, {4, 8.8}, {6, 6.4}, {6, 3.2}}));
        }
    }
}

struct DigitLook {
    Material material;
    Point corner;   // of the digit's box in its frame
    double scale;   // of the box
    double stroke;  // in the box
    double line;
};

void drawDigit(Canvas& canvas, int digit, const DigitLook& look) {
    const auto boxed = canvas.placed(look.corner, 0, look.scale, look.scale);
    canvas.part(digitLine(digit), look.material,
                {.bevel = look.stroke / 2, .line = look.line, .shadow = 0, .stroke = look.stroke});
}

constexpr Material kCream = glossy(material(0xfff3cf, 0xd98f3c, 0xffffff), 0.3F);

/// The numbers that rise from the play: 14 px apart, gold, with a strong line.
void drawScoreDigit(Canvas& canvas, FrameOf frame) {
    drawDigit(canvas, frame.index, {glossy(material(0xffd95a, 0xd0782a, 0xfffbe0), 0.6F), {3.2, 4}, 1.2, 2.3, 1.4});
}

/// The panel's numbers: 10 px apart.
void drawPanelDigit(Canvas& canvas, FrameOf frame) {
    drawDigit(canvas, frame.index, {kCream, {2, 2.2}, 0.98, 1.9, 0.8});
}

void drawSmallDigit(Canvas& canvas, FrameOf frame) {
    drawDigit(canvas, frame.index, {kCream, {1.9, 1.7}, 0.66, 1.9, 0.7});
}

constexpr std::array kStrips{
    //            name           px  px frames
    StripDrawing{"font_for_score", 14, 20, 10, Ground::Clear, drawScoreDigit},
    StripDrawing{"c_imp", 10, 14, 10, Ground::Clear, drawPanelDigit},
    StripDrawing{"c_small", 8, 10, 10, Ground::Clear, drawSmallDigit},
};

}  // namespace

std::span<const StripDrawing> digitStrips() { return kStrips; }

}  // namespace grub
