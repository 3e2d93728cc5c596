#pragma once

#include <cstdint>
#include <vector>

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
        if (number % 4 == 3) start.collectedKeys = everySecondKey(level.map);
        World world(level.map, start, AnimationFrameCounts::all(1 + number % 9));
        world.step();
        return world;
    }

    /// As if an earlier attempt had taken them.
    static std::vector<CellPosition> everySecondKey(const LevelMap& map) {
        std::vector<CellPosition> taken;
        int keys = 0;
        for (int y = 0; y < map.height(); ++y) {
            for (int x = 0; x < map.width(); ++x)
                if (map.cellAt(x, y).keyPresent && keys++ % 2 == 0) taken.push_back({x, y});
        }
        if (taken.size() > kMaxCollectedKeys) taken.resize(kMaxCollectedKeys);
        return taken;
    }

    RandomKeys keys_;
    World world_;
};

}  // namespace grub
