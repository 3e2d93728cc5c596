#pragma once

#include <array>
#include <cstdint>

#include "actor.h"
#include "animation_frames.h"
#include "animation_id.h"
#include "attempt.h"

namespace grub {

/// The keys that steer the hero.
enum class PlayKey : std::uint8_t { Up, Down, Left, Right, Space, Enter, Z, X, A, B };

/// A strip of the hero and the same poses inside the shield.
struct ShieldVariant {
    int base;
    int shielded;
};
inline constexpr std::array kShieldVariants{
    ShieldVariant{animation::kHeroWalkLeft, animation::kShieldWalkLeft},
    ShieldVariant{animation::kHeroWalkRight, animation::kShieldWalkRight},
    ShieldVariant{animation::kHeroHangLeft, animation::kShieldHangLeft},
    ShieldVariant{animation::kHeroHangRight, animation::kShieldHangRight},
    ShieldVariant{animation::kHeroClimb, animation::kShieldClimb},
    ShieldVariant{animation::kHeroDigLeft, animation::kShieldDigLeft},
    ShieldVariant{animation::kHeroDigRight, animation::kShieldDigRight},
    ShieldVariant{animation::kHeroFront, animation::kShieldFront},
    ShieldVariant{animation::kHeroFall, animation::kShieldFall},
    ShieldVariant{animation::kHeroFrontBlink, animation::kShieldFrontBlink},
    ShieldVariant{animation::kHeroStandLeft, animation::kShieldStandLeft},
    ShieldVariant{animation::kHeroStandRight, animation::kShieldStandRight},
};

/// The frame of kHeroClimb in which he rests on a ladder.
inline constexpr int kClimbRestFrame = 5;

/// The last command to the hero. The latest key counts, not the set of held keys.
enum class HeroCommand : std::uint8_t { None, Left, Right, Up, Down, DigLeft, DigRight };

/// Where he looks: the last horizontal direction that was asked for.
enum class Facing : std::uint8_t { Left = 1, Right = 2 };

/// Grub. He walks, climbs, hangs, falls and digs; everything is decided while he stands exactly on a cell, between
/// cells he can only turn back.
class Hero : public Actor {
public:
    /// Stands on the map's start cell, looking left.
    explicit Hero(const LevelMap& map);

    /// A press gives a command and arms the delay of a turn; a release takes back its own command.
    void keyDown(PlayKey key);
    void keyUp(PlayKey key);
    /// Any key shows that the player is there.
    void restartIdleTimer();

    /// One frame of play.
    void update(Attempt& attempt);
    /// Chooses the strip frame to show, once a game frame after `update`. A dig ends here, with its animation.
    void updateFrame(Attempt& attempt);
    /// The strip frame to go on from in the next game frame. It has no shield: a shield is only drawn.
    [[nodiscard]] AnimationFrame stripFrame() const { return stripFrame_; }
    /// The strip frame that is drawn.
    [[nodiscard]] AnimationFrame drawnFrame() const;

    /// No enemy can catch him for kShieldFrames.
    void giveShield();
    [[nodiscard]] bool isShielded() const { return shielded_; }
    /// Frames of shield left.
    [[nodiscard]] int shieldTimer() const { return shieldTimer_; }

    /// For traces and tests.
    [[nodiscard]] HeroCommand command() const { return command_; }
    [[nodiscard]] Facing facing() const { return facing_; }
    [[nodiscard]] bool isDigging() const { return digging_; }

    /// Adds everything that play depends on.
    void addTo(StateHash& hash) const;

    friend bool operator==(const Hero&, const Hero&) = default;

private:
    void takeKeysInReach(Attempt& attempt) const;
    void arriveAtCell(Attempt& attempt);
    void decide(Attempt& attempt);
    void turnBack(const LevelMap& map);
    void obey(Attempt& attempt);
    void walk(const LevelMap& map, Facing direction);
    void dig(Attempt& attempt, Facing side);
    void countShield();
    void countIdle(const LevelMap& map);

    [[nodiscard]] int sided(int left, int right) const { return facing_ == Facing::Left ? left : right; }
    AnimationFrame chooseFrame(Attempt& attempt);
    [[nodiscard]] AnimationFrame movingSideways(Attempt& attempt) const;
    [[nodiscard]] AnimationFrame movingUpright(Attempt& attempt) const;
    [[nodiscard]] AnimationFrame resting(const LevelMap& map) const;
    [[nodiscard]] AnimationFrame digging(const AnimationFrameCounts& counts);

    HeroCommand command_ = HeroCommand::None;
    Facing facing_ = Facing::Left;
    AnimationFrame stripFrame_;
    int idleTimer_ = kIdleFrames;
    int shieldTimer_ = 0;
    int turnDelay_ = 0;  // decisions in which he only turns
    bool digging_ = false;
    bool idlePlaying_ = false;
    bool shielded_ = false;
};

}  // namespace grub
