#pragma once

#include "float_plane.h"
#include "material.h"

namespace grub {

/// Direction of a surface or a light; x right, y down, z towards the eye.
struct Normal {
    float x = 0;
    float y = 0;
    float z = 1;
};

/// Heights, in samples, of a shape blown up like a balloon: round from its edge inwards over `bevel` samples, flat
/// beyond, smoothed so that the middle shows no creases. 0 outside the shape.
FloatPlane puffyHeights(const FloatPlane& coverage, double bevel);

/// Direction of the surface at a sample.
Normal normalAt(const FloatPlane& heights, int x, int y);

/// Colour of the material there: two-tone key light from above and in front, highlight, warm rims on both sides, warm
/// bounce from below. Left and right are lit almost alike, since mirrored pictures stand beside unmirrored ones.
Rgb shade(const Material& material, const Normal& normal);

}  // namespace grub
