#pragma once

#include <string>
#include <vector>

#include "page_source.h"

namespace grub {

/// Holds an interface against what the game asks of it: names both ways, numbers of elements, the order of fonts, and
/// that targets of the mouse are large enough and apart. A text without layouts of that interface is not held to them.
void checkNames(const PageSource& source, std::vector<std::string>& faults);

/// Whether two areas have a pixel in common; whether one lies inside the other.
bool overlap(const Rect& a, const Rect& b);
bool holds(const Rect& outer, const Rect& inner);

}  // namespace grub
