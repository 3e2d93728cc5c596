#pragma once

#include <optional>

#include "vector_path.h"

namespace grub {

// A pose says where the parts of a figure are; a figure's own drawing knows what they look like and in which order they
// lie. Lengths are design pixels in the figure's cell of 64 x 64, x to the right, y down; angles are radians,
// clockwise. Figures face right; see FigureStyle for the other side.

/// From where a figure is seen. A side view is turned a little towards the viewer.
enum class FigureView { Side, Front, Back };

/// What the fingers do.
enum class Grip { Fist, Open, Pointing };

/// What a hand, a mouth or a tail can hold, and what can hang on a collar.
enum class Prop { None, Spoon, GoldSpoon, SpoonWithKeys, RollingPin, Pie, Key, Keys, Crumb, Napkin };

/// A prop and where it points: 0 to the right, positive downwards.
struct Held {
    Prop prop = Prop::None;
    double angle = 0;
    /// How far the prop is moved along that way from where it is usually held, in design pixels.
    double along = 0;
};

/// An arm or a foreleg.
struct ArmPose {
    /// Middle of the hand or paw, wherever the body goes.
    Point hand;
    /// Which way the elbow goes: 1 or -1.
    double bend = -1;
    /// Length of each of the two bones; 0: just long enough to reach.
    double bone = 0;
    Grip grip = Grip::Fist;
    Held held = {};
    /// Moves the shoulder away from its place on the body.
    Point shoulder = {};
    /// Turn of a paw that walks; toe up is negative.
    double paw = 0;
    /// A far arm lies over the body, as when both hands hold one thing.
    bool acrossBody = false;
    /// An arm that reaches up passes before the head instead of behind it.
    bool acrossHead = false;
};

/// A leg or a hind leg.
struct LegPose {
    /// Middle of the sole, wherever the body goes.
    Point sole;
    /// Turn of the foot; toe up is negative.
    double angle = 0;
    /// Turn of the toes against the foot, where they stay on the ground while the heel is up.
    double toes = 0;
    /// Which way the knee goes: 1 or -1.
    double bend = -1;
    /// Moves the hip joint away from its place on the body.
    Point hip = {};
};

/// The head, relative to the body.
struct HeadPose {
    /// Moves the features to the right, in pixels: 0 looks straight at the viewer, 3 or 4 is a side view.
    double turn = 3;
    /// Turn about the neck; nose up is negative.
    double tilt = 0;
    Point shift = {};
    /// A hat or helmet that has slipped: pixels and turn.
    Point hatShift = {};
    double hatTilt = 0;
    /// A blow has left a dent in it.
    bool hatDented = false;
    /// The lamp of a helmet is out.
    bool lampOut = false;
    /// The mouth is open in every mood: a dog barks.
    bool mouthOpen = false;
};

/// One attitude of a figure. "Near" is the side of the viewer in a side view, the left one on the picture in the
/// others.
struct Pose {
    FigureView view = FigureView::Side;
    /// Moves the body: its hips, and with them shoulders and head.
    Point hips = {};
    /// Turn of the body about the hips; forward is positive.
    double lean = 0;
    /// Share by which the body is shorter, and as much wider.
    double squash = 0;
    /// A body on four legs hangs under them: it lies upside down, and its head stays upright.
    bool bellyUp = false;
    HeadPose head = {};
    ArmPose nearArm = {};
    ArmPose farArm = {};
    LegPose nearLeg = {};
    LegPose farLeg = {};
    /// Tip of the tail, or swing of a hem, away from its place at rest.
    Point tail = {};
    /// What the teeth hold, what hangs on the tail, what is tied round the neck.
    Prop inMouth = Prop::None;
    Prop onTail = Prop::None;
    Prop atNeck = Prop::None;
    /// Turn and size of the whole figure, limbs included, about the middle of its cell.
    double roll = 0;
    double size = 1;
};

}  // namespace grub
