#pragma once

#include <cstdint>

#include "random_keys.h"
#include "soak_levels.h"
#include "world.h"

namespace grub {

/// One attempt at a level under random keys. Everything in it follows from its number; a copy plays on alike.
class SoakGame {
public:
    /// An attempt that has not ended by this frame is given up.
    static constexpr int kLongest = 1500;

    /// Before its first frame.
    SoakGame(const SoakLevel& level, int number)
        : keys_(static_cast<std::uint32_t>(number) * 7919U), world_(builtWorld(level, number)) {}

    /// As it is after the last frame.
    [[nodiscard]] const World& world() const { return world_; }
    [[nodiscard]] bool isOver() const { return world_.ended() || world_.frame() >= kLongest; }

    /// Keys, step, and what drawing advances.
    void playFrame() {
        keys_.press(world_);
        world_.step();
        world_.finishFrame(true);
    }
    /// A frame that only shows the level, as behind a dialog.
    void showFrame() { world_.finishFrame(false); }

private:
    /// The level's animations have 1 to 9 frames, so that digs and holes last differently.
    static World builtWorld(const SoakLevel& level, int number) {
        WorldStart start;
        start.levelIndex = level.levelIndex;
        start.seed = static_cast<std::uint32_t>(number);
        World world(level.map, start, AnimationFrameCounts::all(1 + number % 9));
        world.step();
        return world;
    }

    RandomKeys keys_;
    World world_;
};

}  // namespace grub
