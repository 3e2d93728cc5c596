#pragma once

#include "world.h"

namespace grub {

/// The hand on the keyboard: what of the player's keys reaches the world. This one passes all of them on; others write
/// a game down, or play one that was. Used on the game thread only.
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

    /// The player steers, or shows in another way that somebody is there.
    virtual void keyDown(World& world, PlayKey key) { world.keyDown(key); }
    virtual void keyUp(World& world, PlayKey key) { world.keyUp(key); }
    virtual void otherKey(World& world) { world.restartIdleTimer(); }

    /// Before each step of play, after the player's keys; and after the frame, with all that drawing advances.
    virtual void beforeStep(World& /*world*/) {}
    virtual void afterFrame(const World& /*world*/) {}
    /// The next picture shows the world as it is now.
    virtual void beforePicture(const World& /*world*/) {}
    /// The attempt is over. False leaves the game.
    virtual bool goesOnAfter(const World& /*world*/) { return true; }
};

}  // namespace grub
