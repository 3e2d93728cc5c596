#include "curve_picture.h"

#include <algorithm>

#include "difficulty.h"
#include "ink.h"

namespace grub {

namespace {

constexpr Pixel kPaper{250, 248, 242, 255};
constexpr Pixel kText{60, 56, 64, 255};
constexpr Pixel kGrid{222, 218, 208, 255};
constexpr Pixel kBar{168, 190, 206, 255};
constexpr Pixel kLine{196, 62, 48, 255};

constexpr int kWidth = 640;
constexpr int kHeight = 240;
constexpr Rect kPlot{34, 30, 596, 184};
constexpr int kGridStep = 10;  // points

double heightOf(double difficulty, double top) { return kPlot.height * difficulty / top; }

void drawGrid(PixelImage& image, double top) {
    for (int value = 0; value <= top; value += kGridStep) {
        const double y = kPlot.bottom() - heightOf(value, top);
        ink(image, VectorPath().moveTo({kPlot.x, y}).lineTo({kPlot.right(), y}), kGrid, 1);
        write(image, std::to_string(value), {kPlot.x - 6, y + 4}, 12, kText, Align::Right);
    }
}

}  // namespace

PixelImage drawCurve(const std::string& title, const std::vector<CurvePoint>& points, double top) {
    PixelImage image(kWidth, kHeight);
    std::ranges::fill(image.pixels, kPaper);
    write(image, title, {kPlot.x, 20}, 15, kText);
    drawGrid(image, top);
    const double step = kPlot.width / static_cast<double>(points.size());
    const auto middle = [&](std::size_t i) { return kPlot.x + step * (static_cast<double>(i) + 0.5); };
    std::vector<double> values;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double height = heightOf(points[i].difficulty, top);
        ink(image, Rect{middle(i) - 0.35 * step, kPlot.bottom() - height, 0.7 * step, height}.path(), kBar);
        write(image, std::to_string(points[i].index), {middle(i), kPlot.bottom() + 16}, 12, kText, Align::Centre);
        values.push_back(points[i].difficulty);
    }
    VectorPath line;
    const std::vector<double> means = smoothed(values);
    for (std::size_t i = 0; i < means.size(); ++i) {
        const Point at{middle(i), kPlot.bottom() - heightOf(means[i], top)};
        (void)(i == 0 ? line.moveTo(at) : line.lineTo(at));
    }
    ink(image, line, kLine, 2.5);
    return image;
}

}  // namespace grub
