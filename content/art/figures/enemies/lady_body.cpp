#include "lady_parts.h"
#include "props.h"
#include "shapes.h"

namespace grub {

namespace {

constexpr Rgb kTrim = rgb(0xf7b9da);
constexpr Rgb kStitch = rgb(0xb9a6c6);

/// Half the hem's width, and its row.
constexpr double kHem = 17.4;
constexpr double kHemRow = 50.4;

// ---- dress

struct Hem {
    double left;
    double right;
    double row;
};
Hem hemOf(const LadySkirt& skirt) {
    const double half = kHem + skirt.flare;
    return {32 - half + skirt.swing, 32 + half + skirt.swing, kHemRow - 0.8 * skirt.flare};
}

void drawSkirt(Canvas& canvas, const LadySkirt& skirt) {
    const double swing = skirt.swing;
    const auto [left, right, row] = hemOf(skirt);
    const VectorPath dress = loop({{24.6, 28},
                                   {25, 24},
                                   {39, 24},
                                   {39.4, 28},
                                   {40, 36},
                                   {45 + skirt.flare, 41},
                                   {right, row - 2},
                                   {right + 0.6, row + 2.2},
                                   {40 + swing, row + 3.6},
                                   {32 + swing, row + 3.6},
                                   {24 + swing, row + 3.6},
                                   {left - 0.6, row + 2.2},
                                   {left, row - 2},
                                   {19 - skirt.flare, 41},
                                   {24, 36},
                                   {24.6, 28}});
    canvas.part(dress, kLadyDress, {.bevel = 10, .line = 1.3});
    const Mask inDress = canvas.mask(dress);
    canvas.flat(
        curve({{left - 1, row - 3.2}, {24 + swing, row + 1.4}, {40 + swing, row + 1.4}, {right + 1, row - 3.2}}), kTrim,
        {.alpha = 0.85F, .stroke = 1.7, .clip = &inDress});
    // Folds: wider towards the hem.
    for (const double x : {-12.2, 12.2}) {
        const double low = 32 + 1.1 * x + swing;
        canvas.flat(polygon({{32 + 0.86 * x, 41}, {low + 1.4, row}, {low - 1.4, row}}, 1), kLadyDress.shadow,
                    {.alpha = 0.35F, .clip = &inDress});
    }
}

void drawApron(Canvas& canvas, double turn, const LadySkirt& skirt) {
    const double x = 32 + turn * 0.9;
    const double low = x + skirt.swing;
    const double row = hemOf(skirt).row - 4.4;
    const VectorPath lap = loop({{x - 6, 35},
                                 {x - 3, 33.6},
                                 {x + 3, 33.6},
                                 {x + 6, 35},
                                 {x + 8, 40},
                                 {low + 10, row - 1.6},
                                 {low + 9.6, row},
                                 {low + 9, row + 2},
                                 {low - 9, row + 2},
                                 {low - 9.6, row},
                                 {low - 10, row - 1.6},
                                 {x - 8, 40},
                                 {x - 6, 35}});
    canvas.part(lap, kLadyApron, {.bevel = 5, .line = 0.9, .shadow = 0.3F});
    const Mask inLap = canvas.mask(lap);
    canvas.flat(curve({{low - 10, row - 3}, {low - 8, row - 0.1}, {low + 8, row - 0.1}, {low + 10, row - 3}}), kStitch,
                {.alpha = 0.8F, .stroke = 0.7, .clip = &inLap});
    canvas.part(loop({{x - 4.4, 26.6},
                      {x - 2, 28},
                      {x + 2, 28},
                      {x + 4.4, 26.6},
                      {x + 5, 30},
                      {x + 5.4, 33},
                      {x + 5, 35.4},
                      {x + 2, 36.4},
                      {x - 2, 36.4},
                      {x - 5, 35.4},
                      {x - 5.4, 33},
                      {x - 5, 30},
                      {x - 4.4, 26.6}}),
                kLadyApron, {.bevel = 3, .line = 0.9, .shadow = 0.25F});
    const auto pocket = canvas.placed({(x + low) / 2, row - 2});
    canvas.part(polygon({{-3.6, -4.2}, {3.6, -4.2}, {3.4, 0}, {-3.4, 0}}, 1.4), kLadyApron,
                {.bevel = 1, .line = 0.4, .shadow = 0.15F});
}

/// `x`: the middle of the neckline.
void drawCollar(Canvas& canvas, double x) {
    canvas.part(loop({{x - 6.4, 25.4},
                      {x - 3, 24},
                      {x + 3, 24},
                      {x + 6.4, 25.4},
                      {x + 5, 29.6},
                      {x + 2, 29.4},
                      {x, 27.6},
                      {x - 2, 29.4},
                      {x - 5, 29.6},
                      {x - 6.4, 25.4}}),
                kLadyApron, {.bevel = 2, .line = 0.8, .shadow = 0.25F});
}

/// Shoulders with the collar.
void drawShoulders(Canvas& canvas, double turn) {
    canvas.part(ellipse({32, 28.6}, 9.4, 4.8), kLadyDress, {.bevel = 4.4, .line = 1.1});
    drawCollar(canvas, 32 + turn * 0.6);
}

/// Loops and knot of the bow.
void drawKnot(Canvas& canvas, Point at) {
    for (const double side : {-1.0, 1.0}) {
        canvas.part(ellipse(at + Point{side * 5.4, -0.8}, 5.2, 3.4, side * 0.35), kLadyApron,
                    {.bevel = 2.8, .line = 0.9});
    }
    canvas.part(circle(at, 2.3), kLadyApron, {.bevel = 2, .line = 0.8});
}

/// The bow of the apron's strings from behind.
void drawBow(Canvas& canvas, double swing) {
    const double low = 32 + swing;
    for (const double side : {-1.0, 1.0}) {
        canvas.part(polygon({{32, 36.4}, {32 + side * 3.4, 37}, {low + side * 8.4, 48}, {low + side * 2.6, 48.6}}, 1.2),
                    kLadyApron, {.bevel = 2.4, .line = 0.9});
    }
    drawKnot(canvas, {32, 35.8});
}

/// The bow at her back from the side: one loop and one end.
void drawBowFromSide(Canvas& canvas, double swing) {
    canvas.part(polygon({{24.4, 36}, {26.4, 38}, {21.4 + swing, 47}, {16.4 + swing, 45.4}}, 1.2), kLadyApron,
                {.bevel = 2.2, .line = 0.9});
    canvas.part(ellipse({21.4, 34.2}, 4.6, 3, 0.5), kLadyApron, {.bevel = 2.6, .line = 0.9});
    canvas.part(ellipse({25, 36}, 1.7, 2.1), kLadyApron, {.bevel = 1.8, .line = 0.8});
}

/// What of the pin in the bow shows from the front or from the side, beyond the dress.
void drawPinBehind(Canvas& canvas, FigureView view) {
    if (view == FigureView::Side) return drawProp(canvas, {9.4, 42}, {Prop::RollingPin, -0.42});
    drawKnot(canvas, {32, 36});
    drawProp(canvas, {31, 36.6}, {Prop::RollingPin, 0.12});
}

}  // namespace

void drawLadyDress(Canvas& canvas, FigureView view, const LadySkirt& skirt) {
    if (skirt.pinInBow && view != FigureView::Back) drawPinBehind(canvas, view);
    drawSkirt(canvas, skirt);
    if (view != FigureView::Back) {
        const double turn = view == FigureView::Side ? 4 : 0;
        drawShoulders(canvas, turn);
        drawApron(canvas, turn, skirt);
        if (view == FigureView::Side) drawBowFromSide(canvas, skirt.swing);
        return;
    }
    canvas.part(ellipse({32, 28.6}, 9.4, 4.8), kLadyDress, {.bevel = 4.4, .line = 1.1});
    canvas.part(ellipse({32, 27.6}, 6.6, 2.6), kLadyApron, {.bevel = 2, .line = 0.8});
    if (skirt.pinInBow) drawProp(canvas, {24.6, 42}, {Prop::RollingPin, -0.6});
    drawBow(canvas, skirt.swing);
}

}  // namespace grub
