#pragma once

#include "world.h"

namespace grub {

/// Decides which of the player's keys reach the world. This one passes all of them on; others record a game or replay a
/// recorded one. Used on the game thread only.
class Steering {
public:
    Steering() = default;
    Steering(const Steering&) = delete;
    Steering& operator=(const Steering&) = delete;
    virtual ~Steering() = default;

    /// An attempt is about to be built from `start`, which may be changed.
    virtual void prepare(WorldStart& /*start*/) {}
    /// The attempt has been built, its settling step is done.
    virtual void begin(World& /*world*/) {}
    /// Called after `begin`, until it returns false: plays one game frame that the player does not see.
    virtual bool playUnseenFrame(World& /*world*/) { return false; }

    /// The player presses or releases a key that steers, or any other key or mouse button.
    virtual void keyDown(World& world, PlayKey key) { world.keyDown(key); }
    virtual void keyUp(World& world, PlayKey key) { world.keyUp(key); }
    virtual void otherKey(World& world) { world.restartIdleTimer(); }

    /// Called before each step of play, after the player's keys; and after the frame, with all that drawing advances.
    virtual void beforeStep(World& /*world*/) {}
    virtual void afterFrame(const World& /*world*/) {}
    /// The next screen shows the game frame that play has reached: 0 when the shutter has opened, then every frame of
    /// play. Behind a shutter or a dialog the level is seen, but no frame is announced.
    virtual void beforePicture(const World& /*world*/) {}
    /// The attempt is over. Returns false to leave the game.
    virtual bool goesOnAfter(const World& /*world*/) { return true; }
};

}  // namespace grub
