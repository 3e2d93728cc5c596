#include "figure_sheet.h"

#include <cmath>

#include "font.h"
#include "shapes.h"

namespace grub {

namespace {

/// A cell and what may reach beyond it, in design pixels.
constexpr double kAround = 8;
constexpr double kSide = 64 + 2 * kAround;

/// Pixels above each picture for the names of pose and expression, at any scale.
constexpr int kCaption = 18;
constexpr double kCaptionSize = 11;

constexpr Rgb kGround = rgb(0x3a3e54);
constexpr Rgb kLetters = rgb(0xfff1cf);

/// Small pictures need as many samples as a strip, large ones fewer.
int samplesAt(double scale) { return scale < 2 ? 4 : 2; }

PixelImage drawCell(const FigureDrawing& figure, const NamedPose& pose, const NamedExpression& mood, double scale) {
    const int side = static_cast<int>(std::ceil(kSide * scale));
    Canvas canvas(side, side + kCaption, samplesAt(scale));
    canvas.flat(rectangle(0, 0, side, side + kCaption), kGround);
    const std::string caption =
        scale < 2 ? std::string(pose.name) : std::string(pose.name) + ", " + std::string(mood.name);
    canvas.flat(Font(Face::Body, kCaptionSize).line(caption, {3, kCaptionSize + 2}), kLetters);
    const auto cell = canvas.placed({kAround * scale, kAround * scale + kCaption}, 0, scale, scale);
    figure.draw(canvas, pose.pose, mood.expression, {});
    return canvas.picture();
}

}  // namespace

PixelImage figureSheet(const FigureDrawing& figure, double scale) {
    const int width = static_cast<int>(std::ceil(kSide * scale));
    const int height = width + kCaption;
    PixelImage sheet(width * static_cast<int>(figure.poses.size()), height * static_cast<int>(kExpressions.size()));
    int y = 0;
    for (const NamedExpression& mood : kExpressions) {
        int x = 0;
        for (const NamedPose& pose : figure.poses) {
            layOver(sheet, drawCell(figure, pose, mood, scale), x, y);
            x += width;
        }
        y += height;
    }
    return sheet;
}

}  // namespace grub
