#pragma once

#include "canvas.h"

namespace grub {

// What several drawings of jelezo use.

/// Machines stay behind the play: darker than what is walked on.
inline constexpr Material kMachineCasing = glossy(material(0x45626c, 0x1b2e3a, 0x7d9ea6), 0.4F, 0.3F);
inline constexpr Material kMachineSteel = glossy(material(0x6b7e88, 0x2f4050, 0xa2b6be), 0.7F, 0.4F);

/// A lamp behind a cage on a bracket, 30 px high about `centre`, without the light that it throws.
void drawBulkheadLamp(Canvas& canvas, Point centre);

}  // namespace grub
