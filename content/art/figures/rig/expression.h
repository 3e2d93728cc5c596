#pragma once

#include <array>
#include <string_view>

#include "vector_path.h"

namespace grub {

/// Shape of the eyes. Spirals come with stars around the head.
enum class Eyes { Round, Wide, Spiral };

/// Shape of the mouth. Grit shows the teeth, Pout is a small open mouth.
enum class Mouth { Smile, Open, Grit, Frown, Pout };

/// What a face tells, for every figure: each draws it with its own eyes and mouth.
struct Expression {
    /// Where the pupils are, from -1 to 1 of the room that they have.
    Point look{0.7, 0.1};
    /// How far the lids are shut, 0 to 1.
    double lid = 0;
    /// How far the brows are raised, in pixels, and turned: positive lowers their inner ends, as in anger.
    double browHeight = 0;
    double browTilt = 0;
    Eyes eyes = Eyes::Round;
    Mouth mouth = Mouth::Smile;
    /// How far the chin is raised, and the features with it, in pixels; a hanging head is negative.
    double chin = 0;
    /// Share of a turn that the stars of dizzy eyes have gone round.
    double stars = 0.08;
};

// The expressions that have names. browTilt in radians.
inline constexpr Expression kPleased{};
inline constexpr Expression kStartled{
    .look = {0, 0.3}, .browHeight = 1.6, .browTilt = -0.15, .eyes = Eyes::Wide, .mouth = Mouth::Open};
inline constexpr Expression kScared{
    .look = {0.5, 0.4}, .browHeight = 1.6, .browTilt = -0.3, .eyes = Eyes::Wide, .mouth = Mouth::Grit, .chin = -0.8};
inline constexpr Expression kAngry{
    .look = {0.7, 0.1}, .lid = 0.12, .browHeight = -0.8, .browTilt = 0.4, .mouth = Mouth::Grit};
inline constexpr Expression kDizzy{
    .look = {}, .browHeight = 0.6, .browTilt = -0.25, .eyes = Eyes::Spiral, .mouth = Mouth::Open};
inline constexpr Expression kAsleep{.look = {}, .lid = 1, .browHeight = -0.7, .mouth = Mouth::Pout};
inline constexpr Expression kProud{.look = {0.5, -0.3}, .lid = 0.35, .browHeight = 1, .mouth = Mouth::Smile, .chin = 2};
inline constexpr Expression kBeaming{
    .look = {0.2, -0.5}, .browHeight = 2.2, .browTilt = -0.1, .mouth = Mouth::Smile, .chin = 2.4};
inline constexpr Expression kSad{
    .look = {0.2, 0.6}, .lid = 0.2, .browHeight = 0.8, .browTilt = -0.4, .mouth = Mouth::Frown, .chin = -0.8};

/// The same expression with another look.
constexpr Expression looking(Point look, Expression expression) {
    expression.look = look;
    return expression;
}

/// An expression that pages call by its name.
struct NamedExpression {
    std::string_view name;
    Expression expression;
};
inline constexpr std::array kExpressions{
    NamedExpression{"pleased", kPleased}, NamedExpression{"startled", kStartled}, NamedExpression{"angry", kAngry},
    NamedExpression{"dizzy", kDizzy},     NamedExpression{"asleep", kAsleep},     NamedExpression{"proud", kProud},
    NamedExpression{"sad", kSad},         NamedExpression{"scared", kScared},     NamedExpression{"beaming", kBeaming},
};

}  // namespace grub
