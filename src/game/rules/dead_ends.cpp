#include "dead_ends.h"

#include <algorithm>
#include <bit>

namespace grub {

namespace {

constexpr std::uint8_t opposite(unsigned step) {
    constexpr unsigned kFirstOfPairs = kStepUp | kStepRight;
    return static_cast<std::uint8_t>((step & kFirstOfPairs) << 1U | (step & ~kFirstOfPairs) >> 1U);
}

std::size_t neighbour(std::size_t cell, unsigned step, std::size_t stride) {
    switch (step) {
        case kStepUp: return cell - stride;
        case kStepDown: return cell + stride;
        case kStepRight: return cell + 1;
        default: return cell - 1;
    }
}

/// For each cell the directions from which steps lead into it.
std::vector<std::uint8_t> entrancesOf(std::span<const std::uint8_t> steps, std::size_t stride) {
    std::vector<std::uint8_t> entrances(steps.size(), 0);
    for (std::size_t cell = 0; cell < steps.size(); ++cell) {
        for (unsigned step = kStepUp; step <= kStepLeft; step <<= 1U)
            if ((steps[cell] & step) != 0) entrances[neighbour(cell, step, stride)] |= opposite(step);
    }
    return entrances;
}

}  // namespace

// A cell can become a dead end only when one of its own is cut, so it is enough to look at the entrance of each.
std::vector<DeadEnd> cutDeadEnds(std::span<std::uint8_t> steps, std::size_t stride) {
    std::vector<DeadEnd> deadEnds;
    std::vector<std::uint8_t> entrances = entrancesOf(steps, stride);
    for (std::size_t first = 0; first < steps.size(); ++first) {
        std::size_t cell = first;
        while (std::has_single_bit(entrances[cell]) && (steps[cell] & ~unsigned{entrances[cell]}) == 0) {
            const unsigned back = entrances[cell];
            const std::size_t entrance = neighbour(cell, back, stride);
            deadEnds.push_back(
                {static_cast<std::uint16_t>(cell), static_cast<std::uint16_t>(entrance), steps[cell] != 0});
            steps[cell] = 0;
            entrances[cell] = 0;
            steps[entrance] &= static_cast<std::uint8_t>(~opposite(back));
            entrances[entrance] &= static_cast<std::uint8_t>(~opposite(back));
            cell = entrance;
        }
    }
    std::ranges::reverse(deadEnds);
    return deadEnds;
}

}  // namespace grub
