#pragma once

#include <map>
#include <string>

#include "world.h"

namespace grub {

/// Counts by name what happens in played games, to see what they show:
///
///     end Dog ...      an attempt ended by this cause
///     bonus 0 ...      Grub took a bonus; the number of a BonusKind
///     trapped 9, escaped 9, buried 9, struck 9, returned 9    fates of enemies; the number of an EnemyKind
///     dig, regrown     a floor was dug; one grew back
class Happenings {
public:
    /// Adds what the frame between these two worlds of one game has changed.
    void add(const World& before, const World& after);
    /// How often it happened.
    [[nodiscard]] int count(const std::string& name) const;
    /// All names with their numbers, in a line.
    [[nodiscard]] std::string summary() const;

private:
    void addFate(const Enemy& before, const Enemy& after);

    std::map<std::string, int> counts_;
};

}  // namespace grub
