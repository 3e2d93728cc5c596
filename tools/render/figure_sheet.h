#pragma once

#include "figure_drawing.h"
#include "pixel_image.h"

namespace grub {

/// A figure in all of its poses (columns) and expressions (rows), `scale` times as large as in play, for looking at.
PixelImage figureSheet(const FigureDrawing& figure, double scale);

}  // namespace grub
