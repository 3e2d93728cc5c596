#include "floor_kind.h"

#include "shapes.h"

namespace grub {

namespace {

/// The row at which a floor's own bottom line begins, and how far an open end stands back from the cell's edge.
constexpr double kBottom = 63;
constexpr double kEnd = 1.6;

}  // namespace

VectorPath floorBody(FloorEnds ends, double top) {
    const double left = ends.left ? kEnd : -40;
    const double right = ends.right ? kCellSize - kEnd : kCellSize + 40;
    return rectangle(left, top, right - left, kBottom - top, 3);
}

}  // namespace grub
