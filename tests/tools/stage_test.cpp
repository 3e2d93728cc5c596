// Scenes of play on the sheets of the help.

#include "stage.h"

#include <gtest/gtest.h>

namespace grub {
namespace {

TEST(Stage, SaysWhichRowIsWrong) {
    struct Row {
        const char* what;
        std::vector<std::string> rows;
        std::optional<std::string> fault;
    };
    const Row kRows[] = {
        {"all signs", {". # = _ t H h C P - k E @", "d l r 1 2 3 4 5 6 < > ^ v"}, std::nullopt},
        {"one cell", {"@"}, std::nullopt},
        {"an unknown sign", {". @", ". x"}, ". x"},
        {"a row that is longer", {". @", "= = ="}, "= = ="},
        {"a row that ends in a blank", {". @ "}, ". @ "},
        {"no blank between two", {"..@"}, "..@"},
        {"an empty row", {""}, ""},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(faultOf({Hall::Turma, row.rows}), row.fault);
    }
}

PixelImage drawn(const Stage& stage) {
    Canvas canvas(128, 160, 1);
    EXPECT_TRUE(drawStage(canvas, stage, {}).good());
    return canvas.picture();
}

TEST(Stage, IsEquallyHighWithAndWithoutFloorInItsLastRow) {
    const auto lowest = [](const Stage& stage) {
        const PixelImage image = drawn(stage);
        int y = image.height;
        while (y > 0 && image.at(40, y - 1).a == 0) --y;
        return y;
    };
    EXPECT_EQ(lowest({Hall::Podval, {". .", "= _"}}), 144);
    EXPECT_EQ(lowest({Hall::Podval, {". .", "= ."}}), 144);
}

TEST(Stage, TurnsFiguresTheWayTheyGo) {
    // The walls differ from cell to cell: only what differs between with and without the figure counts.
    const auto columnOf = [](const char* row, const char* empty) {
        const PixelImage with = drawn({Hall::Turma, {row, "= ="}});
        const PixelImage without = drawn({Hall::Turma, {empty, "= ="}});
        double sum = 0;
        double count = 0;
        for (int y = 0; y < 64; ++y) {
            for (int x = 0; x < 128; ++x) {
                if (with.at(x, y) == without.at(x, y)) continue;
                sum += x % 64;
                ++count;
            }
        }
        return sum / count;
    };
    // Most of the dog is at its front.
    const double left = columnOf("< d", "< .");
    const double right = columnOf("d >", ". >");
    EXPECT_NEAR(left + right, 63, 1.5);
    EXPECT_LT(left, right - 1);
}

}  // namespace
}  // namespace grub
