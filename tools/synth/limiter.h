#pragma once

#include "samples.h"

namespace grub {

/// Turns a loop down around its peaks so that none is above `limit`; all channels together. The loudness moves slowly
/// enough not to be heard as distortion, and goes round the seam as if the loop had always been playing.
void limitLoop(std::vector<Samples>& channels, double limit, int rate);

}  // namespace grub
