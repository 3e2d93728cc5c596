#pragma once

#include <string>
#include <vector>

#include "board_samples.h"
#include "pixel_image.h"

namespace grub {

/// A sample on a clear ground. `fit` says whether its words fit.
PixelImage renderSample(const BoardSample& sample, Fit& fit);

/// All samples in front of a wall, pixels `zoom` times as large. `faults` takes a line for each whose words do not fit.
PixelImage boardSheet(int zoom, std::vector<std::string>& faults);

}  // namespace grub
