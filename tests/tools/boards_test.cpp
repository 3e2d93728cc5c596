// Boards and the words on them, measured in the pixels that come out.

#include <gtest/gtest.h>

#include <cmath>

#include "board_looks.h"
#include "key_cap.h"
#include "words.h"

namespace grub {
namespace {

constexpr int kWidth = 260;
constexpr int kHeight = 120;
constexpr Rect kArea{20, 30, 220, 60};

double luminance(const Pixel& p) {
    const auto linear = [](std::uint8_t v) {
        const double c = v / 255.0;
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(p.r) + 0.7152 * linear(p.g) + 0.0722 * linear(p.b);
}

double contrast(double a, double b) { return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05); }

/// What lies behind words: the bare ground, and the board on it.
Canvas canvasWith(const Board& board) {
    Canvas canvas(kWidth, kHeight);
    const bool bare = board.kind == BoardKind::Wall || board.kind == BoardKind::Night;
    if (bare) canvas.flat(Rect{0, 0, kWidth, kHeight}.path(), groundOf(board.kind));
    drawBoard(canvas, board);
    return canvas;
}

TEST(Words, StandOutFromTheirBoards) {
    const struct {
        const char* what;
        Ink ink;
        BoardKind board;
        Face face;
        double size;
    } rows[] = {
        {"button at rest", Ink::Cream, BoardKind::Plank, Face::Display, 26},
        {"button on its way", Ink::Dark, BoardKind::Tan, Face::Display, 26},
        {"chosen button", Ink::Dark, BoardKind::Gold, Face::Display, 26},
        {"chosen line", Ink::Dark, BoardKind::Gold, Face::Body, 18},
        {"notice", Ink::Dark, BoardKind::Paper, Face::Body, 20},
        {"hint", Ink::Dark, BoardKind::Hint, Face::Body, 18},
        {"caption", Ink::Dark, BoardKind::Caption, Face::Body, 20},
        {"balloon", Ink::Dark, BoardKind::Balloon, Face::Body, 20},
        {"cell", Ink::Cream, BoardKind::Slate, Face::Display, 34},
        {"title", Ink::Golden, BoardKind::Wall, Face::Display, 56},
        {"name in the night", Ink::Golden, BoardKind::Night, Face::Display, 56},
        {"line in the night", Ink::Cream, BoardKind::Night, Face::Body, 24},
    };
    for (const auto& row : rows) {
        Canvas canvas = canvasWith({.kind = row.board, .area = kArea});
        const PixelImage ground = canvas.picture();
        EXPECT_TRUE(drawWords(canvas, {kArea, row.face, row.size, Align::Centre, row.ink, row.board, "HOME"}).good());
        const PixelImage written = canvas.picture();
        // A letter's pixels are those that writing has brought more than half the way to the ink.
        const double wanted = row.ink == Ink::Dark ? 0.017 : row.ink == Ink::Cream ? 0.88 : 0.55;
        double letters = 0;
        double behind = 0;
        int count = 0;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const double before = luminance(ground.at(x, y));
                const double after = luminance(written.at(x, y));
                if ((after - before) / (wanted - before) < 0.5) continue;
                letters += after;
                behind += before;
                ++count;
            }
        }
        ASSERT_GT(count, 100) << row.what;
        EXPECT_GE(contrast(letters / count, behind / count), 4.5) << row.what;
    }
}

TEST(Words, SayByHowMuchTheyDoNotFit) {
    const Font font(Face::Body, 20);
    const double width = font.width("One spoon.");
    const struct {
        const char* what;
        BoardKind board;
        double width;
        double height;
        const char* text;
        Fit fit;
    } rows[] = {
        {"just wide enough", BoardKind::Paper, width, 40, "One spoon.", {}},
        {"too wide", BoardKind::Paper, width - 5, 40, "One spoon.", {5, 0, ""}},
        {"8 px on either side", BoardKind::Balloon, width + 16, 40, "One spoon.", {}},
        {"less in a balloon", BoardKind::Balloon, width + 13, 40, "One spoon.", {3, 0, ""}},
        {"less in a caption", BoardKind::Caption, width + 6, 40, "One spoon.", {10, 0, ""}},
        {"the longest line counts", BoardKind::Paper, width - 2, 80, "One|One spoon.|One", {2, 0, ""}},
        {"too high", BoardKind::Paper, 200, font.pitch() + font.capHeight() - 4, "One|One", {0, 4, ""}},
        {"a cap for a word", BoardKind::Paper, keyCapWidth(font, "Enter") - 3, 40, "[Enter]", {3, 0, ""}},
        {"arrows are narrower than their names", BoardKind::Paper, 26, 40, "[Right]", {}},
        {"no such letter", BoardKind::Paper, 200, 40, "caf\xe9", {0, 0, "\xe9"}},
    };
    for (const auto& row : rows) {
        Canvas canvas(10, 10, 1);
        const Words words{{0, 0, row.width, row.height}, Face::Body, 20, Align::Left, Ink::Dark, row.board, row.text};
        const Fit fit = drawWords(canvas, words);
        EXPECT_NEAR(fit.tooWide, row.fit.tooWide, 0.01) << row.what;
        EXPECT_NEAR(fit.tooHigh, row.fit.tooHigh, 0.01) << row.what;
        EXPECT_EQ(fit.missing, row.fit.missing) << row.what;
    }
}

/// Where the dark pixels of an area lie.
Box darkBox(const PixelImage& image, const Box& within) {
    Box box{within.x1, within.y1, within.x0, within.y0};
    for (int y = within.y0; y < within.y1; ++y) {
        for (int x = within.x0; x < within.x1; ++x) {
            if (luminance(image.at(x, y)) > 0.05) continue;
            box = {std::min(box.x0, x), std::min(box.y0, y), std::max(box.x1, x + 1), std::max(box.y1, y + 1)};
        }
    }
    return box;
}

TEST(KeyCaps, StandOnTheLineWithTheirArrowBesideTheLetters) {
    Canvas canvas = canvasWith({.kind = BoardKind::Wall});
    const Rect all{0, 0, 100, kHeight};
    canvas.flat(all.path(), kNoticePaper.base);
    EXPECT_TRUE(drawWords(canvas, {all, Face::Body, 18, Align::Left, Ink::Dark, BoardKind::Wall, "[Left]HH"}).good());
    const PixelImage image = canvas.picture();
    const Box cap = darkBox(image, {0, 0, 26, kHeight});
    const Box letters = darkBox(image, {28, 0, 100, kHeight});
    const Box arrow = darkBox(image, {6, cap.y0 + 3, 20, cap.y1 - 6});
    EXPECT_NEAR(cap.y1 - cap.y0, kCapHeight, 2);
    EXPECT_NEAR(arrow.y0 + arrow.y1, letters.y0 + letters.y1, 2) << "their middles lie on one row";
    EXPECT_LE(cap.x1, letters.x0);
}

TEST(Boards, StayInsideTheirArea) {
    const Board rows[] = {
        {BoardKind::Plank, kArea, Fastening::Nails},
        {BoardKind::Gold, kArea, Fastening::Nails, Mark::Spoon},
        {BoardKind::Tan, kArea, Fastening::Nails, Mark::HollowArrow},
        {BoardKind::Paper, kArea, Fastening::Rings},
        {BoardKind::Paper, kArea, Fastening::Nails},
        {BoardKind::Hint, kArea},
        {BoardKind::Caption, kArea},
        {BoardKind::Balloon, kArea},
        {BoardKind::Slate, kArea},
        {BoardKind::Tray, kArea},
    };
    for (const Board& board : rows) {
        const PixelImage image = canvasWith(board).picture();
        EXPECT_EQ(image.at(kWidth / 2, kHeight / 2).a, 255);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const bool inside = x >= kArea.x && x < kArea.right() && y >= kArea.y && y < kArea.bottom();
                ASSERT_TRUE(inside || image.at(x, y).a == 0) << static_cast<int>(board.kind) << " at " << x << ' ' << y;
            }
        }
    }
}

TEST(Balloons, PointAtTheirSpeaker) {
    constexpr Rect body{90, 40, 80, 36};
    for (const Point tip : {Point{40, 110}, Point{130, 100}, Point{220, 110}, Point{30, 60}, Point{230, 50},
                            Point{60, 10}, Point{200, 12}}) {
        Canvas canvas(kWidth, kHeight);
        drawBoard(canvas, {.kind = BoardKind::Balloon, .area = body, .speaker = tip});
        const PixelImage image = canvas.picture();
        double nearest = HUGE_VAL;
        double farthest = 0;
        const Point out = tip - body.centre();
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (image.at(x, y).a < 100) continue;
                const Point at{x + 0.5, y + 0.5};
                nearest = std::min(nearest, length(at - tip));
                const Point way = at - body.centre();
                farthest = std::max(farthest, (way.x * out.x + way.y * out.y) / length(out));
            }
        }
        EXPECT_LT(nearest, 2) << tip.x << ' ' << tip.y;
        EXPECT_LT(farthest, length(out) + 2.5) << tip.x << ' ' << tip.y;
    }
}

}  // namespace
}  // namespace grub
