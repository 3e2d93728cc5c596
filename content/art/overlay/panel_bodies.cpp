#include "panel_bodies.h"

#include <array>

#include "common_parts.h"
#include "palette.h"
#include "shapes.h"
#include "surface.h"

namespace grub {

namespace {

constexpr double kWidth = 800;
constexpr double kHeight = 64;

/// Columns between two numbers, where a panel shows what it is made of; the outer ones are its ends.
constexpr std::array kPosts{21.0, 204.5, 379.0, 563.0, 772.0};

/// A ledge along the upper edge, which keeps the panel apart from the hall.
void drawLedge(Canvas& canvas, const Material& material) {
    canvas.flat(rectangle(-20, 9, kWidth + 40, 5), rgb(0x0c0818), {.alpha = 0.4F});
    canvas.part(rectangle(-20, 0.8, kWidth + 40, 9.4, 2), material, {.bevel = 4, .line = 1.2, .shadow = 0.4F});
}

void drawShade(Canvas& canvas) { canvas.shadeRows(12, kHeight, 1.04F, 0.72F); }

void drawRivet(Canvas& canvas, Point at, const Material& material) {
    canvas.part(circle(at, 2.7), material, {.bevel = 2.4, .line = 0.8, .shadow = 0.5F});
}

// ---- rough stone

constexpr Rgb kRubble = rgb(0x837a74);

/// A course of stones of uneven widths; `seed` chooses them.
void drawCourse(Canvas& canvas, double top, double height, float narrow, float wide, std::uint32_t seed) {
    double x = -20 - 30.0 * randomShare(seed, 0, 5);
    for (std::uint32_t i = 0; x < kWidth + 20; ++i) {
        const double width = mix(narrow, wide, randomShare(seed, i, 7));
        const double sunk = 2.0 * randomShare(seed, i, 8);
        Rgb colour = varied(kRubble, seed * 100 + i, 0.1F);
        colour = mix(colour, randomShare(seed, i, 9) < 0.4F ? rgb(0x6f7382) : rgb(0x8a7663), 0.35F);
        canvas.part(rectangle(x + 0.7, top + sunk, width - 1.4, height - 1.4 - sunk, 8),
                    stony(colour, 1.4F, 0.13F, 0.1F), {.bevel = 6.5, .line = 0.8, .shadow = 0.2F});
        x += width;
    }
}

void drawRoughStone(Canvas& canvas) {
    canvas.flat(rectangle(-20, -20, kWidth + 40, kHeight + 40), rgb(0x26222c));
    drawCourse(canvas, 9, 28, 38, 84, 3);
    drawCourse(canvas, 36, 31, 44, 96, 6);
    drawShade(canvas);
    Material slab = stony(rgb(0xa89e94), 0.7F, 0.1F, 0.2F);
    slab.rim = 0.25F;
    drawLedge(canvas, slab);
    for (const double x : {96.0, 231.0, 402.0, 529.0, 694.0})
        drawCrack(canvas, {{x, 0}, {x - 2, 4}, {x + 1, 10}}, 0.8F);
}

// ---- dressed stone with bars

void drawBarred(Canvas& canvas) {
    canvas.flat(rectangle(-20, -20, kWidth + 40, kHeight + 40), kTurma.backdropMortar * 0.8F);
    constexpr std::array kJoints{-20.0, 38.0, 204.0, 362.0, 396.0, 546.0, 580.0, 755.0, 820.0};
    for (std::size_t i = 0; i + 1 < kJoints.size(); ++i) {
        const Material block =
            stony(varied(kTurma.solid[i % 2] * 0.8F, static_cast<std::uint32_t>(i), 0.03F), 1, 0.11F, 0.15F);
        canvas.part(rectangle(kJoints[i] + 0.6, 8, kJoints[i + 1] - kJoints[i] - 1.2, 57, 4), block,
                    {.bevel = 5, .line = 0.9, .shadow = 0.1F});
    }
    drawShade(canvas);
    for (const double x : kPosts) {
        if (x == kPosts[1]) continue;  // too little room between a recess and an icon
        const VectorPath opening = rectangle(x - 10, 18, 20, 39, 4);
        canvas.part(opening, stony(rgb(0x1a1a30), 0, 0), {.bevel = 2, .line = 1.2});
        const Mask inside = canvas.mask(opening);
        for (const double bar : {-5.0, 0.0, 5.0})
            canvas.part(rectangle(x + bar - 1.5, 12, 3, 52, 1), kDarkMetal,
                        {.bevel = 1.5, .line = 0.8, .clip = &inside});
        canvas.part(rectangle(x - 14, 35.5, 28, 3.4, 1), kDarkMetal, {.bevel = 1.6, .line = 0.8, .clip = &inside});
    }
    drawLedge(canvas, stony(mix(kTurma.solid[0], rgb(0xe8e6f0), 0.25F), 0.6F, 0.08F, 0.25F));
}

// ---- oak under iron

void drawOak(Canvas& canvas) {
    canvas.flat(rectangle(-20, -20, kWidth + 40, kHeight + 40), rgb(0x24161e));
    constexpr std::array kSeams{8.0, 27.0, 46.0, 66.0};
    for (std::size_t row = 0; row + 1 < kSeams.size(); ++row) {
        const auto seed = static_cast<std::uint32_t>(row);
        double x = -60 - 120.0 * randomShare(seed, 1, 41);
        for (std::uint32_t i = 0; x < kWidth + 20; ++i) {
            const double width = mix(190, 330, randomShare(seed, i, 43));
            Material oak = glossy(material(varied(rgb(0x84553a), 10 * seed + i, 0.08F)), 0.2F, 0.15F);
            oak.bump = 0.3F;
            oak.grain = 0.07F;
            const Rect plank{x + 0.5, kSeams[row] + 0.4, width - 1, kSeams[row + 1] - kSeams[row] - 0.8};
            canvas.part(plank.path(2), oak, {.bevel = 4, .line = 0.8, .shadow = 0.1F});
            const Mask inside = canvas.mask(plank.inset(2).path());
            for (std::uint32_t line = 0; line < 3; ++line) {
                const double y = plank.y + 4 + 5 * line + 2.0 * randomShare(seed * 7 + i, line, 47);
                const double sway = 3.0 * randomShare(i, line + 5, 49);
                canvas.flat(curve({{x, y}, {x + width * 0.3, y - sway}, {x + width * 0.6, y + sway}, {x + width, y}}),
                            oak.ink, {.alpha = 0.3F, .stroke = 0.9, .clip = &inside});
            }
            x += width;
        }
    }
    drawShade(canvas);
    for (const double x : kPosts) {
        canvas.part(rectangle(x - 9, 8, 18, 60, 2), kDarkMetal, {.bevel = 3.4, .line = 1.2});
        for (const double y : {18.0, 54.0}) drawRivet(canvas, {x, y}, kMetal);
    }
    Material iron = kDarkMetal;
    iron.bump = 0.3F;
    drawLedge(canvas, iron);
}

// ---- riveted steel

void drawRiveted(Canvas& canvas) {
    Material steel = glossy(material(rgb(0x647884), rgb(0x2b3c48), rgb(0xa6bcc6)), 0.45F, 0.25F);
    steel.bump = 0.35F;
    steel.grain = 0.05F;
    canvas.flat(rectangle(-20, -20, kWidth + 40, kHeight + 40), kJelezo.backdropMortar);
    double left = -20;
    for (std::size_t i = 0; i <= kPosts.size(); ++i) {
        const double right = i < kPosts.size() ? kPosts[i] : kWidth + 20;
        canvas.part(rectangle(left + 0.6, 7, right - left - 1.2, 61, 3), steel,
                    {.bevel = 3.6, .line = 1, .shadow = 0.1F});
        left = right;
    }
    drawShade(canvas);
    Material strap = glossy(material(rgb(0x50646f), rgb(0x22303a), rgb(0x93aab4)), 0.6F, 0.25F);
    strap.grain = 0.04F;
    for (const double x : kPosts) {
        canvas.part(rectangle(x - 9, 6, 18, 64, 2), strap, {.bevel = 2.6, .line = 1});
        for (const double y : {18.0, 30.0, 42.0, 54.0}) drawRivet(canvas, {x, y}, kMetal);
    }
    // Rust has run from under the ledge.
    for (const double x : {41.0, 196.0, 351.0, 585.0, 749.0}) {
        canvas.flat(limb({{{x, 12}, 3.4}, {{x + 0.8, 22}, 2.2}, {{x, 34}, 0.6}}), rgb(0x8a4a2e), {.alpha = 0.3F});
        canvas.flat(limb({{{x + 7, 12}, 1.8}, {{x + 7, 20}, 0.5}}), rgb(0x8a4a2e), {.alpha = 0.3F});
    }
    drawLedge(canvas, steel);
    for (int x = 16; x < kWidth; x += 32) canvas.part(circle({1.0 * x, 5.2}, 1.8), kMetal, {.bevel = 1.7, .line = 0.6});
}

constexpr Material kBrass = glossy(material(0xa8844a, 0x51372f, 0xf0cf8a), 0.8F, 0.4F);

}  // namespace

const PanelBody kRoughStonePanel{kDarkMetal, drawRoughStone};
const PanelBody kBarredPanel{kDarkMetal, drawBarred};
const PanelBody kOakPanel{kBrass, drawOak};
const PanelBody kRivetedPanel{kBrass, drawRiveted};

}  // namespace grub
