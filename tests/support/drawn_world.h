#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "key_events.h"
#include "level_writer.h"
#include "recorded_game.h"
#include "world.h"

namespace grub {

/// A world on a drawn map, already settled: the next frame is frame 1. Each frame is a step and what drawing advances.
class DrawnWorld {
public:
    /// See worldFrom.
    DrawnWorld(const Drawing& drawing, const WorldStart& start, const AnimationFrameCounts& counts)
        : world_(mapFrom(drawing), start, counts), seed_(start.seed) {
        world_.step();
        listen();
    }

    /// Adds key events to come, written as in a key file with commas for line ends: "1 down Right, 7 up Right". Aborts
    /// with a message when an event cannot be read.
    DrawnWorld& script(std::string_view keys) {
        std::string lines(keys);
        std::ranges::replace(lines, ',', '\n');
        TextError error;
        const auto events = readKeyFile(lines, error);
        if (!events) {
            std::cerr << error.in(lines) << '\n';
            std::abort();
        }
        events_.insert(events_.end(), events->begin(), events->end());
        return *this;
    }
    /// Plays until this frame has been played.
    DrawnWorld& runTo(int frame) {
        while (world_.frame() < frame) playFrame();
        return *this;
    }
    DrawnWorld& run(int frames) { return runTo(world_.frame() + frames); }

    /// The world itself, to read it or to do to it what the helpers do not.
    [[nodiscard]] World& world() { return world_; }
    [[nodiscard]] const World& world() const { return world_; }
    /// The field as a drawing: see drawField and marksOf.
    [[nodiscard]] Drawing drawn() const { return Drawing(drawField(world_.map(), marksOf(world_))); }
    /// How many numbers the world has drawn from its generator.
    [[nodiscard]] int draws() const {
        WorldRandom random(seed_);
        int count = 0;
        for (; random.state() != world_.randomState(); ++count) random.next();
        return count;
    }
    /// The frames in which the sound was started.
    [[nodiscard]] std::vector<int> framesOf(SoundId sound) const {
        std::vector<int> frames;
        for (const auto& [frame, request] : sounds_)
            if (request == SoundRequest{sound, SoundRequest::Action::Play}) frames.push_back(frame);
        return frames;
    }

private:
    void playFrame() {
        for (const KeyEvent& event : events_)
            if (event.frame == world_.frame() + 1) tell(world_, event);
        world_.step();
        world_.finishFrame(true);
        listen();
    }
    void listen() {
        for (const SoundRequest& request : world_.sounds()) sounds_.emplace_back(world_.frame(), request);
    }

    World world_;
    std::uint32_t seed_;
    std::vector<KeyEvent> events_;
    std::vector<std::pair<int, SoundRequest>> sounds_;  // and the frames in which the world asked for them
};

/// A settled world. Every animation has `kDrawnFrames` frames unless `counts` says otherwise.
inline constexpr int kDrawnFrames = 4;
[[nodiscard]] inline DrawnWorld worldFrom(
    const Drawing& drawing, const WorldStart& start = {},
    const AnimationFrameCounts& counts = AnimationFrameCounts::all(kDrawnFrames)) {
    return {drawing, start, counts};
}

/// The cells of a map without actors, with _ for open holes.
[[nodiscard]] inline Drawing drawnMap(const LevelMap& map) {
    std::vector<FieldMark> holes;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x)
            if (map.cellAt(x, y).breakState != BreakState::Intact) holes.push_back({'_', {x, y}});
    }
    return Drawing(drawField(map, holes));
}

/// A field to put single actors on, without a hero and with every distance unknown.
[[nodiscard]] inline Attempt attemptOn(const Drawing& drawing) {
    return {mapFrom(drawing), WorldRandom(1), AnimationFrameCounts::all(kDrawnFrames), {}, {}, {}, {}, {}};
}

/// The smallest seed for which `fits` returns true; it gets a generator at its start.
template <class Predicate>
[[nodiscard]] std::uint32_t seedWhere(Predicate fits) {
    std::uint32_t seed = 0;
    while (!fits(WorldRandom(seed))) ++seed;
    return seed;
}

/// The second level of a game, with a seed that puts this bonus into this cell in frame 249, the first of a bonus,
/// unless an enemy draws before.
[[nodiscard]] inline WorldStart startWithBonus(const Drawing& drawing, BonusKind kind, CellPosition place) {
    const LevelFile level = drawnLevel(drawing);
    WorldStart start;
    start.levelIndex = 1;
    start.seed = seedWhere([&](WorldRandom random) {
        const int x = std::min(random.next() / (32767 / level.width), level.width - 1);
        const int y = std::min(random.next() / (32767 / level.height), level.height - 1);
        return CellPosition{x, y} == place && random.next() / 5461 == static_cast<int>(kind);
    });
    return start;
}

}  // namespace grub
