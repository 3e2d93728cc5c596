// Figures as pages see them: every pose with every expression.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "built_strips.h"
#include "canvas.h"

namespace grub {
namespace {

/// Room around the cell that a figure may reach into, so that no group cuts it.
constexpr int kRoom = 24;
constexpr int kSide = 64 + 2 * kRoom;

PixelImage drawn(const FigureDrawing& figure, const Pose& pose, const Expression& expression,
                 const FigureStyle& style = {}) {
    Canvas canvas(kSide, kSide, 2);
    const auto cell = canvas.placed({kRoom, kRoom});
    figure.draw(canvas, pose, expression, style);
    return canvas.picture();
}

TEST(Figures, HaveTwelvePosesThatDifferAndAreNotCutOff) {
    for (const FigureDrawing* figure : figures()) {
        SCOPED_TRACE(figure->name);
        EXPECT_GE(figure->poses.size(), 12U);
        std::vector<PixelImage> seen;
        for (const NamedPose& pose : figure->poses) {
            SCOPED_TRACE(pose.name);
            EXPECT_EQ(std::ranges::count(figure->poses, pose.name, &NamedPose::name), 1);
            const PixelImage image = drawn(*figure, pose.pose, kPleased);
            EXPECT_GT(visiblePixels(image), 500);
            EXPECT_FALSE(touchesEdge(image));
            for (const PixelImage& other : seen)
                EXPECT_GT(difference(image, other), 1) << "another pose looks the same";
            seen.push_back(image);
        }
    }
}

TEST(Figures, TellExpressionsApart) {
    for (const FigureDrawing* figure : figures()) {
        SCOPED_TRACE(figure->name);
        std::vector<PixelImage> seen;
        for (const NamedExpression& each : kExpressions) {
            SCOPED_TRACE(each.name);
            Canvas canvas(kSide, kSide, 2);
            const auto cell = canvas.placed({kRoom, kRoom});
            figure->drawHead(canvas, {}, each.expression, {});
            const PixelImage head = canvas.picture();
            for (const PixelImage& other : seen) EXPECT_GT(difference(head, other), 0.5) << "two moods look the same";
            seen.push_back(head);
        }
    }
}

TEST(Figures, FaceLeftAsTheyFaceRight) {
    for (const FigureDrawing* figure : figures()) {
        const Pose& pose = figure->poses.front().pose;
        PixelImage left = drawn(*figure, pose, kPleased, {.facesLeft = true});
        for (int y = 0; y < kSide; ++y) std::reverse(left.row(y), left.row(y) + kSide);
        // Shadows fall a little to the right on either side.
        EXPECT_LT(difference(left, drawn(*figure, pose, kPleased)), 6) << figure->name;
    }
}

}  // namespace
}  // namespace grub
