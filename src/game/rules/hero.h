#pragma once

#include <cstdint>

#include "actor.h"
#include "animation_frame.h"
#include "attempt.h"
#include "hero_animation.h"
#include "play_key.h"

namespace grub {

/// What the hero has been told last. One word, not a set of held keys: the latest key counts.
enum class HeroCommand : std::uint8_t { None, Left, Right, Up, Down, DigLeft, DigRight };

/// Where he looks; the last horizontal direction asked for.
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
    /// Any key shows that somebody is there.
    void restartIdleTimer();

    /// One frame of play.
    void update(Attempt& attempt);
    /// Chooses the picture of this frame of play, once a frame after `update`. A dig ends here, with its animation.
    void updatePicture(Attempt& attempt);
    /// The picture of this frame, to go on from in the next. Without the shield: that is only drawn.
    [[nodiscard]] AnimationFrame picture() const { return picture_; }
    /// The same as it is drawn.
    [[nodiscard]] AnimationFrame shownPicture() const;

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
    AnimationFrame choosePicture(Attempt& attempt);
    [[nodiscard]] AnimationFrame movingSideways(Attempt& attempt) const;
    [[nodiscard]] AnimationFrame movingUpright(Attempt& attempt) const;
    [[nodiscard]] AnimationFrame resting(const LevelMap& map) const;
    [[nodiscard]] AnimationFrame digging(const AnimationFrameCounts& counts);

    HeroCommand command_ = HeroCommand::None;
    Facing facing_ = Facing::Left;
    AnimationFrame picture_;
    int idleTimer_ = kIdleFrames;
    int shieldTimer_ = 0;
    int turnDelay_ = 0;  // decisions in which he only turns
    bool digging_ = false;
    bool idlePlaying_ = false;
    bool shielded_ = false;
};

}  // namespace grub
