#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "actor.h"
#include "rules.h"

namespace grub {

struct Attempt;
class Hero;

/// What a bonus does. The numbers are those of the random draw.
enum class BonusKind : std::uint8_t { Invisibility = 0, Skull = 1, Anchor = 2, Bomb = 3, Shield = 4, Heart = 5 };

/// Something to take that lies for kBonusFrames and changes the rules for a while.
class Bonus : public AnimatedItem {
public:
    /// On a cell, to be taken.
    Bonus(int cx, int cy, BonusKind kind);

    /// One frame of its life.
    void age();
    /// Takes it: it is drawn for the rest of this frame and leaves its slot in the next.
    void take();

    /// What it does.
    [[nodiscard]] BonusKind bonusKind() const { return kind_; }
    /// Frames it has left.
    [[nodiscard]] int lifetime() const { return lifetime_; }
    /// Whether it can be taken.
    [[nodiscard]] bool isActive() const { return active_; }
    /// Whether it leaves its slot in the next game frame.
    [[nodiscard]] bool isExpired() const { return expired_; }

    /// Adds everything that play depends on.
    void addTo(StateHash& hash) const;

    friend bool operator==(const Bonus&, const Bonus&) = default;

private:
    BonusKind kind_;
    bool active_ = true;
    bool expired_ = false;
    int lifetime_ = kBonusFrames;
};

/// The bonuses of an attempt, and what taken ones still do.
struct Bonuses {
    std::array<std::optional<Bonus>, kBonusSlots> slots;
    int countdown = kBonusInterval;  // frames until the next one may appear
    int anchorTimer = 0;             // frames in which enemies stay slow
    int invisibilityTimer = 0;       // frames in which enemies do not know where the hero is

    /// Adds everything that play depends on.
    void addTo(StateHash& hash) const;

    friend bool operator==(const Bonuses&, const Bonuses&) = default;
};

/// Puts a bonus into the first empty slot; nothing when all are taken.
void spawnBonus(Bonuses& bonuses, int cx, int cy, BonusKind kind);
/// One frame of all bonuses and of what taken ones do; a new one may appear, but not in the hero's cell.
void updateBonuses(Attempt& attempt, const Hero& hero);
/// Takes what lies in the hero's cell, in the order of the slots. He stands exactly on it.
void pickUpBonuses(Attempt& attempt, Hero& hero);

/// Kills the living enemy that is nearest to the hero, if there is one.
void killNearestEnemy(Attempt& attempt, const Hero& hero);
/// Slows every enemy down to kAnchoredSpeed from its next decision on, or gives each its own speed back.
void setAnchored(Attempt& attempt, bool anchored);
/// Breaks the floors two cells around, but the one under (cx, cy).
void blast(LevelMap& map, int cx, int cy);

}  // namespace grub
