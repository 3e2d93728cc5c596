#pragma once

#include <string>
#include <vector>

#include "board_samples.h"
#include "pixel_image.h"

namespace grub {

/// All samples in front of a wall, pixels `zoom` times as large. `faults` takes a line for each whose words do not fit.
PixelImage boardSheet(int zoom, std::vector<std::string>& faults);

}  // namespace grub
