#pragma once

#include <cstdint>

#include "world.h"

namespace grub {

/// A player without a plan, the same for the same seed. He presses keys, directions more often than digs, and another
/// one when Grub has stood for a moment; now and then he lets him stand.
class RandomKeys {
public:
    explicit RandomKeys(std::uint32_t seed) : random_(seed) {}

    /// The keys before a step.
    void press(World& world) {
        const bool stands = world.hero().vx == 0 && world.hero().vy == 0;
        patience_ -= stands ? 1 : 0;
        if (--rest_ > 0 && patience_ > 0) return;
        rest_ = 1 + random_.next() % 100;
        patience_ = random_.next() % 64 == 0 ? 200 : 6;
        const PlayKey key = chooseKey();
        const int what = random_.next() % 8;
        if (what == 0) world.restartIdleTimer();
        if (what < 2) return world.keyUp(key);
        world.keyDown(key);
    }

private:
    PlayKey chooseKey() {
        const int dice = random_.next() % 20;
        return static_cast<PlayKey>(dice < 10 ? dice : dice % 4);  // Up, Down, Left and Right come first
    }

    WorldRandom random_;
    int rest_ = 0;      // frames until the next key
    int patience_ = 0;  // the same while he stands
};

}  // namespace grub
