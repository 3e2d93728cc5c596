#pragma once

#include <array>
#include <string>

#include "world.h"

namespace grub {

/// What games have been through: a soak that never got somewhere proves nothing about it.
struct SoakCoverage {
    static constexpr std::size_t kCauses = 5;  // dog, lady, rat, pit, won
    static constexpr std::size_t kBonusKinds = 6;

    std::array<int, kCauses> ends{};
    std::array<int, kBonusKinds> bonuses{};  // taken
    int digs = 0;
    int regrown = 0;
    int trapped = 0;
    int escaped = 0;
    int killed = 0;
    int returned = 0;
    int drawingFrames = 0;    // frames in which the generator moved
    int unsureForecasts = 0;  // frames in which it might have come to stand elsewhere as well

    /// What the step from one world to the next did.
    void add(const World& before, const World& after);
    /// Everything in a line.
    [[nodiscard]] std::string summary() const;
};

}  // namespace grub
