#pragma once

#include <cstdint>
#include <span>

#include "actor.h"
#include "animation_frames.h"
#include "animation_id.h"
#include "enemy_traits.h"
#include "rules.h"

namespace grub {

struct Attempt;
class StateHash;

/// What an enemy does. The numbers are those of traces.
enum class EnemyState : std::uint8_t {
    Roaming = 0,   // hunts or wanders
    Trapped = 1,   // falls into a hole, then sits in it
    Escaping = 2,  // climbs out of it
    Dead = 3       // waits out of the way for its return
};

/// Where a wandering enemy wants to go. `Undecided` asks for a new choice; with `Nowhere` it stands for one game frame.
enum class EnemyDirection : std::uint8_t { Undecided = 0, Left = 1, Right = 2, Up = 3, Down = 4, Nowhere = 5 };

/// A dog, a lady or a rat, as its traits say. A hunter follows the hero's distances, or wanders where there are none;
/// the others run to and fro on their floor. An enemy decides only on a cell; between cells it moves.
class Enemy : public Actor {
public:
    /// On a cell, roaming, looking left.
    Enemy(int cx, int cy, EnemyKind kind);

    /// One frame of behaviour and movement. Draws from the attempt's generator only while it wanders or comes back.
    void update(Attempt& attempt);
    /// Chooses the strip frame to show, once a game frame after all enemies have moved.
    void updateAnimation(const LevelMap& map);
    /// Takes it off the field: to pixel (0, 0), dead.
    void die();
    /// Puts it where it comes back. False when there was no room; another call draws another place.
    bool respawn(Attempt& attempt);
    /// Whether it does not fall from here.
    [[nodiscard]] bool isSupported(const LevelMap& map) const;
    /// Pixels a game frame from its next decision on. Its velocity stays until then, or it would miss its cell.
    void setSpeed(int pixels) { speed_ = pixels; }

    /// For drawing, end checks, crowding and traces.
    [[nodiscard]] EnemyKind kind() const { return kind_; }
    [[nodiscard]] const EnemyTraits& traits() const { return traitsOf(kind_); }
    [[nodiscard]] EnemyState state() const { return state_; }
    [[nodiscard]] EnemyDirection direction() const { return direction_; }
    [[nodiscard]] AnimationFrame stripFrame() const { return stripFrame_; }
    [[nodiscard]] int timer() const { return timer_; }
    [[nodiscard]] int speed() const { return speed_; }
    /// It stood exactly on a cell, supported, when its last update began.
    [[nodiscard]] bool wasAtNode() const { return atNode_; }
    /// Whether it keeps away from others that do so too.
    [[nodiscard]] bool keepsDistance() const { return traits().hunts && state_ == EnemyState::Roaming; }

    /// Adds everything that play depends on.
    void addTo(StateHash& hash) const;

    friend bool operator==(const Enemy&, const Enemy&) = default;

private:
    /// Whether the enemy still moves in this frame.
    enum class Then : bool { Stays, Moves };

    Then decide(Attempt& attempt);
    Then roam(Attempt& attempt);
    void fall(Attempt& attempt);
    void fallIntoHole(Attempt& attempt, MapCell& hole);
    [[nodiscard]] bool passesThroughHole(const LevelMap& map) const;
    void waitInHole(LevelMap& map);
    void waitForReturn(Attempt& attempt);

    void chooseDirection(Attempt& attempt);
    void hunt(const LevelMap& map);
    void patrol(const LevelMap& map);
    void wander(Attempt& attempt);
    void wanderSideways(Attempt& attempt, EnemyDirection side);
    void wanderUpright(const LevelMap& map, EnemyDirection way);
    void perhapsTakeLadder(Attempt& attempt);
    void go(EnemyDirection way);

    [[nodiscard]] bool isHanging(const LevelMap& map) const;
    [[nodiscard]] AnimationFrame moving(const LevelMap& map) const;
    [[nodiscard]] AnimationFrame inHole() const;
    [[nodiscard]] int sided(EnemyTraits::StripPair pair) const;

    EnemyKind kind_;
    EnemyState state_ = EnemyState::Roaming;
    EnemyDirection direction_ = EnemyDirection::Left;
    bool atNode_ = false;
    int timer_ = 0;  // frames left in this state
    int speed_;
    AnimationFrame stripFrame_{animation::kDogWalkLeft, 0};  // of every kind before its first move
    int frameDelay_ = 0;                                     // game frames until the next strip frame
};

/// After all have moved: when two enemies that keep their distance are in one cell, the earlier one of the list goes
/// back, if it has just left a cell.
void keepApart(std::span<Enemy> enemies);

}  // namespace grub
