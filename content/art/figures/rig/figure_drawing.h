#pragma once

#include <span>
#include <string_view>

#include "canvas.h"
#include "expression.h"
#include "pose.h"

namespace grub {

/// What a picture asks of a figure beside pose and expression.
struct FigureStyle {
    bool facesLeft = false;
    /// Colour mixed into all of it, for night or for a silhouette.
    Tint tint = {};
    /// Strength of the shadow on what lies behind.
    float shadow = 0;
};

/// The cell of a figure, and room for what reaches beyond it.
inline constexpr Rect kFigureArea{-24, -24, 112, 112};

/// The group that a figure is drawn in, its own line of `outline` around it.
constexpr GroupStyle figureGroup(const FigureStyle& style, double outline) {
    return {.box = kFigureArea,
            .mirrored = style.facesLeft,
            .outline = outline,
            .tint = style.tint,
            .shadow = style.shadow};
}

/// A pose that pages call by its name.
struct NamedPose {
    std::string_view name;
    Pose pose;
};

/// A figure as pages see it: each figure's header offers one.
struct FigureDrawing {
    std::string_view name;
    /// Draws the figure in its cell, whose upper left corner is the origin of the placement.
    void (*draw)(Canvas& canvas, const Pose& pose, const Expression& expression, const FigureStyle& style);
    /// Draws the head alone, where it is when the figure stands.
    void (*drawHead)(Canvas& canvas, const HeadPose& head, const Expression& expression, const FigureStyle& style);
    /// At least twelve.
    std::span<const NamedPose> poses;
};

}  // namespace grub
