#pragma once

#include "float_plane.h"

namespace grub {

/// Which samples the distances are measured from.
enum class DistanceFrom { Inside, Outside };

/// For every sample that is covered by more than half (Inside) or by less (Outside): the exact distance, in samples, to
/// the nearest sample of the other kind; 0 for the others. Without any sample of the other kind the distances are very
/// large.
FloatPlane distanceField(const FloatPlane& coverage, DistanceFrom from);

}  // namespace grub
