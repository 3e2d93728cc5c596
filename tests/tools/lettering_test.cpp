// Letters as outlines: how wide texts are, where lines break, where they stand.

#include <gtest/gtest.h>

#include "bytes.h"
#include "font.h"
#include "mask.h"
#include "scratch_directory.h"

namespace grub {
namespace {

constexpr char kNoEnd[] = "\xe9";  // a code that no typeface here holds

/// The samples that an outline touches, at four samples a pixel, on a page of 200 x 100 pixels.
Box inkBox(const VectorPath& path) { return rasterise(path, Affine{}.scaled(4, 4), {}, 0, {0, 0, 800, 400}).box; }

TEST(Lettering, MeasuresWhatTheFontsSay) {
    const Font body(Face::Body, 24);
    const Font display(Face::Display, 34);
    const struct {
        const char* what;
        double actual;
        double wanted;  // pixels, measured with another reader of the same files
    } rows[] = {
        {"a sentence", body.width("Grub will wait. He has a spoon"), 316.8},
        {"twice the size", Font(Face::Body, 48).width("Grub"), 2 * body.width("Grub")},
        {"a pair that is kerned", display.width("AV"), display.width("A") + display.width("V") - 1.3},
        {"a pair that is not", display.width("HH"), 2 * display.width("H")},
        {"a letter that is missing", body.width(kNoEnd), 0},
        {"whole pixels between lines", body.pitch(), 32},
    };
    for (const auto& row : rows) EXPECT_NEAR(row.actual, row.wanted, 0.05) << row.what;
}

TEST(Lettering, BreaksLinesAtTheWidthAndWhereTheTextSays) {
    const Font font(Face::Body, 18);
    const struct {
        const char* text;
        double width;
        std::vector<std::string> lines;
    } rows[] = {
        {"Step off at its end.", 1000, {"Step off at its end."}},
        {"Step off at its end.", font.width("Step off at") + 1, {"Step off at", "its end."}},
        {"Step off at", font.width("Step off at") - 1, {"Step off", "at"}},
        {"one\n\ntwo", 1000, {"one", "", "two"}},
        {"unbreakable", 10, {"unbreakable"}},
        {"", 10, {""}},
    };
    for (const auto& row : rows) EXPECT_EQ(font.wrapped(row.text, row.width), row.lines) << row.text;
}

TEST(Lettering, PutsTheLineWhereItsAlignmentSays) {
    const Font font(Face::Body, 20);
    const double width = font.width("HHHH");
    for (const Align align : {Align::Left, Align::Centre, Align::Right}) {
        const Box box = inkBox(font.line("HHHH", {100, 50}, align));
        const double middle = (box.x0 + box.x1) / 8.0;
        EXPECT_NEAR(middle, 100 + width * (0.5 - shareBefore(align)), 1.5);
        EXPECT_NEAR(box.y1 / 4.0, 50, 0.5) << "an H stands on the baseline";
        EXPECT_NEAR((box.y1 - box.y0) / 4.0, font.capHeight(), 0.5);
    }
}

TEST(Lettering, GrowsLettersOnAllSidesAndKeepsTheirHoles) {
    const VectorPath letter = Font(Face::Display, 80).line("O", {60, 80});
    const VectorPath fat = plump(letter, 2);
    const Box thin = inkBox(letter);
    const Box wide = inkBox(fat);
    EXPECT_EQ((std::array{wide.x0, wide.y0, wide.x1, wide.y1}),
              (std::array{thin.x0 - 8, thin.y0 - 8, thin.x1 + 8, thin.y1 + 8}));
    const Mask mask = rasterise(fat, Affine{}.scaled(4, 4), {}, 0, {0, 0, 800, 400});
    EXPECT_EQ(mask.at((wide.x0 + wide.x1) / 2, (wide.y0 + wide.y1) / 2), 0) << "the hole is open";
    EXPECT_EQ(mask.at(wide.x0 + 8, (wide.y0 + wide.y1) / 2), 1) << "the stem is closed";
}

TEST(Lettering, NamesWhatIsMissing) {
    EXPECT_EQ(Font(Face::Body, 20).missing(std::string("caf") + kNoEnd + "\n" + kNoEnd), kNoEnd);
    EXPECT_EQ(typeface(Face::Display).fault() + typeface(Face::Body).fault(), "");
    const ScratchDirectory scratch;
    const std::string noFont = scratch.write("no.otf", bytesOf("no font"));
    for (const std::string& file : {scratch.file("none.otf"), noFont}) {
        const Typeface broken(file);
        EXPECT_EQ(broken.fault(), file + ": wanted a font with outlines");
        EXPECT_EQ(Font(broken, 20).missing("ab"), "ab");
        EXPECT_EQ(Font(broken, 20).width("ab"), 0);
    }
}

}  // namespace
}  // namespace grub
