#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "animation_frames.h"
#include "attempt.h"
#include "hero.h"
#include "level_map.h"
#include "rules.h"
#include "sound_requests.h"

namespace grub {

/// What an attempt at a level starts with.
struct WorldStart {
    int score = 0;
    int lives = kStartLives;
    int levelIndex = 0;
    std::uint32_t seed = 0;                   // of the world's own generator
    std::vector<CellPosition> collectedKeys;  // taken in earlier attempts, still taken

    friend bool operator==(const WorldStart&, const WorldStart&) = default;
};

/// How to draw the hero: one frame of a strip.
struct HeroFrame {
    int x = 0;  // pixels in the level
    int y = 0;
    int animation = 0;
    int frame = 0;
    bool halfTransparent = false;
};

/// One attempt at a level: map, actors, score, end. A plain value without a window, a sound card or a clock: a copy
/// plays on by itself, and the same level, seed and keys give the same frames everywhere.
///
/// A game frame is the keys that came, then `step`, then `finishFrame`. The builder of a world takes the first step
/// too: it settles the level, is game frame 0, and is not drawn.
class World {
public:
    /// Takes the keys that `start` names off the map and puts the actors of its objects on it.
    World(LevelMap map, const WorldStart& start, const AnimationFrameCounts& counts);

    /// A key was pressed during play. It also counts as a sign of life.
    void keyDown(PlayKey key) { hero_.keyDown(key); }
    /// A key was released. Call it in every state of the game, or the hero runs on.
    void keyUp(PlayKey key) { hero_.keyUp(key); }
    /// Any other key: the hero does not grow restless while the player is there.
    void restartIdleTimer() { hero_.restartIdleTimer(); }

    /// One frame of the rules. Forgets the sounds of the frame before.
    void step();
    /// What drawing advances, once a game frame whether anything is drawn or not. `playing` is false in game frames
    /// that only show the level, as behind a dialog: all actors then keep their strip frames, nothing asks for a sound,
    /// and only the score numbers rise.
    void finishFrame(bool playing);
    /// Ends the attempt from outside, as a closed window does. The rules of a later step may name another cause.
    void end(LossCause cause) { attempt_.end(cause); }

    /// Takes the distances from the hero out of a cache, which must outlive this world and its copies: for searches.
    void cacheDistances(DistanceCache& cache) { attempt_.map.cacheDistances(cache); }

    /// Cells and actors as they are after the last step, to be drawn.
    [[nodiscard]] const LevelMap& map() const { return attempt_.map; }
    [[nodiscard]] const Hero& hero() const { return hero_; }
    [[nodiscard]] HeroFrame heroFrame() const;
    [[nodiscard]] std::span<const Enemy> enemies() const { return attempt_.enemies; }
    [[nodiscard]] std::span<const AnimatedItem> decorations() const { return attempt_.decorations; }
    [[nodiscard]] const Bonuses& bonuses() const { return attempt_.bonuses; }
    [[nodiscard]] const ScorePopups& popups() const { return attempt_.popups; }
    /// How many frames a strip has for the rules.
    [[nodiscard]] const AnimationFrameCounts& frameCounts() const { return attempt_.frameCounts; }
    /// What `step` and `finishFrame` of this frame ask for, in order; valid until the next `step`.
    [[nodiscard]] std::span<const SoundRequest> sounds() const { return attempt_.sounds.all(); }

    /// Number of the last step; -1 before the first, 0 after the one that settles the level.
    [[nodiscard]] int frame() const { return frame_; }
    [[nodiscard]] bool ended() const { return attempt_.ended; }
    /// Why it ended; means something once `ended`.
    [[nodiscard]] LossCause cause() const { return attempt_.cause; }
    [[nodiscard]] int score() const { return attempt_.score; }
    [[nodiscard]] int lives() const { return attempt_.lives; }
    [[nodiscard]] int levelIndex() const { return attempt_.levelIndex; }
    [[nodiscard]] int keysRemaining() const { return attempt_.map.keysRemaining(); }
    /// For the next attempt's WorldStart; empty after a win.
    [[nodiscard]] std::span<const CellPosition> collectedKeys() const { return attempt_.map.collectedKeys(); }
    /// State of the world's generator, for traces.
    [[nodiscard]] std::uint32_t randomState() const { return attempt_.random.state(); }

    /// A number for everything that play changes and depends on, the generator included: two worlds of one level with
    /// the same hash, given the same keys, play the same. Rising score numbers and sounds do not count.
    [[nodiscard]] std::uint64_t stateHash() const;

    friend bool operator==(const World&, const World&) = default;

private:
    void placeObjects();
    void updateDecorations();
    void updateEnemies();
    void finishDecorations();
    void checkEnd();
    void checkCaught();
    void checkWin();

    Attempt attempt_;
    Hero hero_;
    int frame_ = -1;
};

}  // namespace grub
