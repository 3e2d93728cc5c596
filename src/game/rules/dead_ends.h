#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace grub {

/// Steps that lead out of a cell, as bits. The order of the bits is the order in which the fill takes them, and that
/// order decides which distances come out.
enum RouteStep : std::uint8_t { kStepUp = 1, kStepDown = 2, kStepRight = 4, kStepLeft = 8 };

/// A cell that is entered from one neighbour only and leads nowhere but back and to dead ends of its own: the air above
/// a floor, the end of a corridor. However a fill goes about, the cell ends up one step behind its entrance.
struct DeadEnd {
    std::uint16_t cell;
    std::uint16_t entrance;
    bool leadsBack;

    friend bool operator==(const DeadEnd&, const DeadEnd&) = default;
};

/// Takes the steps into dead ends and out of them away, so that what is left of `steps` (RouteStep bits of a cell each,
/// row by row, `stride` cells a row, none leading out of the field) joins the other cells. The dead ends come in an
/// order that has each behind its entrance.
[[nodiscard]] std::vector<DeadEnd> cutDeadEnds(std::span<std::uint8_t> steps, std::size_t stride);

}  // namespace grub
