#pragma once

#include "float_plane.h"

namespace grub {

/// Gaussian of `sigma` samples as three box filters; beyond the edge lies 0. Below half a sample nothing changes.
FloatPlane blurred(FloatPlane plane, double sigma);

}  // namespace grub
