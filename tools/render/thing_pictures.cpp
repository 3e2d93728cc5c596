#include "thing_pictures.h"

#include <array>

#include "shapes.h"
#include "sparkle.h"

namespace grub {

namespace {

// ---- keys: one picture each, since a key in a cell never moves; the sparkle is part of it

/// A key lying along its own x axis: bow on the left, bit on the right.
void drawKeyShape(Canvas& canvas, const Material& metal, bool trefoil) {
    const PartStyle tooth{.bevel = 2.2, .line = 1.3};
    canvas.part(limb({{{-2, 0}, 2.9}, {{19, 0}, 2.9}}), metal, {.bevel = 2.8, .line = 1.4});
    canvas.part(rectangle(10.3, 1, 4.6, 8.6, 1.2), metal, tooth);
    canvas.part(rectangle(16.8, 1, 4.6, 6.8, 1.2), metal, tooth);
    canvas.part(limb({{{-2, 0}, 2.9}, {{19, 0}, 2.9}}), metal, {.bevel = 2.8, .line = 0, .shadow = 0});
    canvas.part(rectangle(1.4, -4.4, 3.6, 8.8, 1.4), metal, {.bevel = 1.8, .line = 1.1});
    if (!trefoil) {
        canvas.part(ring({-9.4, 0}, 10.2, 4.6), metal, {.bevel = 2.8, .line = 1.4});
        return;
    }
    for (const Point lobe : {Point{-6, -6.4}, Point{-6, 6.4}, Point{-14, 0}}) {
        canvas.part(ring(lobe, 6.6, 2.6), metal, {.bevel = 2.1, .line = 1.3});
    }
    canvas.part(circle({-7, 0}, 3.4), metal, {.bevel = 2.4, .line = 0.9});
}

void drawKey(Canvas& canvas, FrameOf) {
    canvas.halo({32, 34}, 31, rgb(0xffd98a), 0.22F);
    {
        const auto laid = canvas.placed({29.5, 37}, -0.55);
        drawKeyShape(canvas, kGold, false);
    }
    drawSparkle(canvas, {41, 19.5}, 7.5);
    drawSparkle(canvas, {15.5, 51}, 4.2);
}

void drawOrnateKey(Canvas& canvas, FrameOf) {
    canvas.halo({32, 34}, 31, rgb(0xffd98a), 0.22F);
    {
        const auto laid = canvas.placed({31, 37.5}, -0.55);
        drawKeyShape(canvas, glossy(material(0xffd75a, 0xc07028, 0xfffbd0), 1, 0.6F), true);
    }
    drawSparkle(canvas, {19, 22}, 7.5);
    drawSparkle(canvas, {50, 40}, 4.2);
}

constexpr std::array kPictures{
    //            name                      px  px frames
    PictureEntry{"key_h", 64, 64, 1, Ground::Clear, drawKey},
    PictureEntry{"key", 64, 64, 1, Ground::Clear, drawOrnateKey},
};

}  // namespace

std::span<const PictureEntry> thingPictures() { return kPictures; }

}  // namespace grub
