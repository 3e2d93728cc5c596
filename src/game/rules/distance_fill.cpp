#include "distance_fill.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>

#include "rules.h"
#include "state_hash.h"

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

namespace {

constexpr std::uint16_t kFar = 0xFFFF;

/// A cell that still has steps to take when the fill comes back to it.
struct Branch {
    std::uint32_t cell;
    std::uint32_t steps;
};

// A cell is on the way at most once, since a longer way never enters it again.
using Way = std::array<Branch, std::size_t{kMaxMapSize} * kMaxMapSize>;

}  // namespace

DistanceField::DistanceField(int width, int height)
    : stride_(width + 2),
      steps_(static_cast<std::size_t>(stride_) * static_cast<std::size_t>(height + 2), 0),
      throughSteps_(steps_),
      distances_(steps_.size(), kFar) {}

std::size_t DistanceField::indexOf(int x, int y) const {
    return static_cast<std::size_t>(y + 1) * static_cast<std::size_t>(stride_) + static_cast<std::size_t>(x + 1);
}

void DistanceField::setSteps(int x, int y, unsigned steps) { steps_[indexOf(x, y)] = static_cast<std::uint8_t>(steps); }

void DistanceField::stepsAreSet() {
    throughSteps_ = steps_;
    deadEnds_ = cutDeadEnds(throughSteps_, static_cast<std::size_t>(stride_));
    StateHash hash;
    for (const std::uint8_t steps : steps_) hash.add(steps);
    routes_ = hash.value();
}

void DistanceField::reset() {
    std::fill(distances_.begin(), distances_.end(), kFar);
    isFresh_ = true;
}

int DistanceField::at(int x, int y) const {
    const std::uint16_t distance = distances_[indexOf(x, y)];
    return distance == kFar ? kUnreached : distance;
}

void DistanceField::fill(int x, int y, int distance) {
    assert(distance >= 0 && distance <= kLargestStart);
    const std::size_t cell = indexOf(x, y);
    const auto length = static_cast<std::uint32_t>(distance);
    if (!isFresh_) return fillAlong(steps_, cell, length);
    isFresh_ = false;
    if (cache_.cache == nullptr || distance != 0) return fillFresh(cell, length);
    if (const auto* const known = cache_.cache->find(routes_, cell)) {
        distances_ = *known;
    } else {
        fillFresh(cell, length);
        cache_.cache->add(routes_, cell, distances_);
    }
}

// Most cells of a level are dead ends, and the recursion enters them again with every better way to their entrance.
// They are left out and written once in the end, from their entrances on. In a field that has distances already they
// may keep others than those, so there they take part.
void DistanceField::fillFresh(std::size_t cell, std::uint32_t length) {
    if (leaveDeadEnds(cell, length)) fillAlong(throughSteps_, cell, length);
    fillDeadEnds();
}

/// Goes from a start in a dead end to the first cell outside dead ends. False when no way leads out.
bool DistanceField::leaveDeadEnds(std::size_t& cell, std::uint32_t& length) {
    for (auto end = deadEnds_.rbegin(); end != deadEnds_.rend(); ++end) {
        if (end->cell != cell) continue;
        distances_[cell] = static_cast<std::uint16_t>(length);
        if (!end->leadsBack) return false;
        cell = end->entrance;
        ++length;
    }
    return true;
}

void DistanceField::fillDeadEnds() {
    for (const DeadEnd& end : deadEnds_) {
        if (distances_[end.cell] != kFar || distances_[end.entrance] == kFar) continue;
        distances_[end.cell] = static_cast<std::uint16_t>(distances_[end.entrance] + 1);
    }
}

// The recursion "enter a cell, then each neighbour in turn", with the open branches on a stack of our own. A neighbour
// that is refused on entering a cell would be refused later too, because distances only become smaller, so it is
// dropped at once. What is left is asked again when its turn comes, and the last one needs no branch to return to. A
// cell keeps its distance while it is on the way, so a branch need not store it.
//
// The next cell is chosen by branches, not looked up by the step: ways run straight for long, so the processor guesses
// the branch and enters the next cell before this one's distances have arrived. That halves the time. In a corridor
// only the cell ahead is asked, since the one behind is the nearer; that halves it again.
void DistanceField::fillAlong(const std::vector<std::uint8_t>& allSteps, std::size_t start, std::uint32_t length) {
    const auto stride = static_cast<std::uint32_t>(stride_);
    const std::uint8_t* const steps = allSteps.data();
    std::uint16_t* const distances = distances_.data();
    Way way;  // NOLINT(cppcoreguidelines-pro-type-member-init): only written branches are read
    std::size_t open = 0;

    auto cell = static_cast<std::uint32_t>(start);
    const auto isWorthEntering = [&](std::uint32_t target) {
        return unsigned{distances[target] > length + 1 + kDistanceTolerance};
    };
    const auto worthwhileSteps = [&] {
        return isWorthEntering(cell - stride) * kStepUp | isWorthEntering(cell + stride) * kStepDown |
               isWorthEntering(cell + 1) * kStepRight | isWorthEntering(cell - 1) * kStepLeft;
    };
    const auto go = [&](std::uint32_t step, unsigned corridor) {
        do {
            cell += step;
            distances[cell] = static_cast<std::uint16_t>(++length);
        } while (steps[cell] == corridor && isWorthEntering(cell + step));
    };
    if (distances[cell] <= length + kDistanceTolerance) return;
    distances[cell] = static_cast<std::uint16_t>(length);
    unsigned left = steps[cell] & worthwhileSteps();
    for (;;) {
        if (left == 0) {
            if (open == 0) return;
            --open;
            cell = way[open].cell;
            length = distances[cell];
            left = way[open].steps & worthwhileSteps();
            continue;
        }
        const unsigned others = left & (left - 1);
        if (others != 0) way[open++] = {cell, others};
        if ((left & kStepUp) != 0)
            go(0U - stride, kStepUp | kStepDown);
        else if ((left & kStepDown) != 0)
            go(stride, kStepUp | kStepDown);
        else if ((left & kStepRight) != 0)
            go(1, kStepRight | kStepLeft);
        else
            go(0U - 1U, kStepRight | kStepLeft);
        left = steps[cell] & worthwhileSteps();
    }
}

}  // namespace grub
