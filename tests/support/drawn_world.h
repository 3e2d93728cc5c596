#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "key_events.h"
#include "level_writer.h"
#include "world.h"

namespace grub {

/// A sound that a world asked for, and when.
struct HeardSound {
    int frame = 0;
    SoundRequest request;

    friend bool operator==(const HeardSound&, const HeardSound&) = default;
};

/// A world on a drawn map, already settled: the next frame is frame 1. Each frame is a step and what drawing advances.
class DrawnWorld {
public:
    /// See worldFrom.
    DrawnWorld(const Drawing& drawing, const WorldStart& start, const AnimationFrameCounts& counts);

    /// Adds key events to come, written as in a key file with commas for line ends: "1 down Right, 7 up Right". Aborts
    /// with a message when an event cannot be read.
    DrawnWorld& script(std::string_view keys);
    /// Plays until this frame has been played.
    DrawnWorld& runTo(int frame);
    DrawnWorld& run(int frames) { return runTo(world_.frame() + frames); }

    /// The world itself, to read it or to do to it what the helpers do not.
    [[nodiscard]] World& world() { return world_; }
    [[nodiscard]] const World& world() const { return world_; }
    /// The field as a drawing: see drawField and marksOf.
    [[nodiscard]] Drawing drawn() const;
    /// How many numbers the world has drawn from its generator.
    [[nodiscard]] int draws() const;
    /// The frames in which the sound was started.
    [[nodiscard]] std::vector<int> framesOf(SoundId sound) const;
    /// Every request so far.
    [[nodiscard]] const std::vector<HeardSound>& sounds() const { return sounds_; }

private:
    void playFrame();
    void listen();

    World world_;
    std::uint32_t seed_;
    std::vector<KeyEvent> events_;
    std::vector<HeardSound> sounds_;
};

/// A settled world. Every animation has `kDrawnFrames` frames unless `counts` says otherwise.
inline constexpr int kDrawnFrames = 4;
[[nodiscard]] DrawnWorld worldFrom(const Drawing& drawing, const WorldStart& start = {},
                                   const AnimationFrameCounts& counts = AnimationFrameCounts::all(kDrawnFrames));

/// The cells of a map without actors, with _ for open holes.
[[nodiscard]] Drawing drawnMap(const LevelMap& map);

/// A field to put single actors on, without a hero and with every distance unknown.
[[nodiscard]] Attempt attemptOn(const Drawing& drawing);

/// The smallest seed for which `fits` returns true; it gets a generator at its start.
template <class Predicate>
[[nodiscard]] std::uint32_t seedWhere(Predicate fits) {
    std::uint32_t seed = 0;
    while (!fits(WorldRandom(seed))) ++seed;
    return seed;
}

/// The second level of a game, with a seed that puts this bonus into this cell in frame 249, the first of a bonus,
/// unless an enemy draws before.
[[nodiscard]] WorldStart startWithBonus(const Drawing& drawing, BonusKind kind, CellPosition place);

}  // namespace grub
