#include "set_parts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "hall_set.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

Rect around(std::span<const Point> points) {
    const auto [left, right] = std::ranges::minmax(points, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(points, {}, &Point::y);
    return {left.x, top.y, right.x - left.x, bottom.y - top.y};
}

}  // namespace

void drawPiece(Canvas& canvas, std::string_view name, Point corner, double scale, int frame) {
    const StripDrawing& strip = hallStrip(name);
    const auto cell = canvas.placed(corner, 0, scale, scale);
    const auto group = canvas.group({.box = Rect{0, 0, 1.0 * strip.width, 1.0 * strip.frameHeight}});
    strip.draw(canvas, {frame, strip.frames, name});
}

void drawGradient(Canvas& canvas, const Rect& area, Rgb top, Rgb bottom) {
    constexpr double kStep = 2;
    for (int i = 0; i * kStep < area.height; ++i) {
        const double y = i * kStep;
        const auto share = static_cast<float>(y / area.height);
        canvas.flat(rectangle(area.x, area.y + y, area.width, std::min(kStep, area.height - y)),
                    mix(top, bottom, share));
    }
}

void drawBeam(Canvas& canvas, Point from, double fromWidth, Point to, double toWidth, Rgb colour, float strength) {
    constexpr int kLayers = 14;  // ever narrower, so that the edges are soft
    const Point along = (to - from) * (1 / length(to - from));
    const Point across{-along.y / 2, along.x / 2};
    for (int i = 1; i <= kLayers; ++i) {
        const double share = static_cast<double>(i) / kLayers;
        const Point near = across * (fromWidth * share);
        const Point far = across * (toWidth * share);
        const std::array corners{from - near, to - far, to + far, from + near};
        const Mask cone = canvas.mask(polygon(corners));
        const auto light = canvas.group({.box = around(corners), .clip = &cone});
        canvas.halo(from, length(to - from), colour, 2 * strength / kLayers);
    }
}

void drawRubblePiece(Canvas& canvas, Point centre, double width, double height, double angle, Rgb colour) {
    const auto turned = canvas.placed(centre, angle);
    const double x = width / 2;
    const double y = height / 2;
    canvas.part(
        polygon({{-x, -y * 0.8}, {-x * 0.2, -y}, {x * 0.9, -y * 0.9}, {x, y * 0.5}, {x * 0.4, y}, {-x * 0.9, y}},
                height * 0.18),
        stony(colour, 1.2F, 0.13F), {.bevel = height * 0.3, .line = 1.4});
}

void drawRibbon(Canvas& canvas, std::span<const Point> points, double width, Rgb colour, float strength) {
    constexpr int kSteps = 24;  // of each curve
    const std::size_t curves = (points.size() - 1) / 3;
    const auto at = [&](double t) {
        const auto first = std::min(static_cast<std::size_t>(t), curves - 1);
        const double u = t - static_cast<double>(first);
        const auto p = points.subspan(first * 3, 4);
        const double v = 1 - u;
        return p[0] * (v * v * v) + p[1] * (3 * v * v * u) + p[2] * (3 * v * u * u) + p[3] * (u * u * u);
    };
    const int steps = static_cast<int>(curves) * kSteps;
    for (const double share : {1.0, 0.72, 0.44}) {
        std::vector<Joint> joints;
        for (int i = 0; i <= steps; ++i) {
            const double t = static_cast<double>(i) / steps;
            const double swell = std::sin(t * std::numbers::pi) * (0.8 + 0.2 * std::sin(t * 19));
            joints.push_back({at(t * static_cast<double>(curves)), 1 + share * swell * width / 2});
        }
        canvas.flat(limb(joints), colour, {.alpha = strength / 2});
    }
}

void drawStars(Canvas& canvas, const Rect& area, int count, std::uint32_t seed) {
    for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(count); ++i) {
        const Point at{area.x + area.width * randomShare(i, 1, seed), area.y + area.height * randomShare(i, 2, seed)};
        const double size = 0.7 + 1.1 * randomShare(i, 3, seed);
        canvas.halo(at, size * 4, rgb(0xdfe6ff), 0.25F);
        canvas.flat(circle(at, size), rgb(0xdfe6ff), {.alpha = 0.5F + 0.5F * randomShare(i, 4, seed)});
    }
}

void drawMoon(Canvas& canvas, Point centre, double radius) {
    canvas.halo(centre, radius * 4, rgb(0xfff3c8), 0.22F);
    canvas.part(circle(centre, radius), glossy(material(0xf6e3ae, 0xcfae86, 0xfff8e0), 0, 0),
                {.bevel = radius * 0.6, .line = 0, .shadow = 0});
    for (const Joint& crater :
         {Joint{{-0.35, -0.3}, 0.2}, Joint{{0.1, 0.42}, 0.15}, Joint{{-0.55, 0.3}, 0.09}, Joint{{0.5, -0.18}, 0.12}})
        canvas.flat(circle(centre + crater.at * radius, crater.radius * radius), rgb(0xcfae86), {.alpha = 0.5F});
}

}  // namespace grub
