#pragma once

#include <array>
#include <vector>

#include "actor.h"
#include "animation_frames.h"
#include "bonus.h"
#include "enemy.h"
#include "enemy_traits.h"
#include "level_map.h"
#include "rules.h"
#include "sound_requests.h"
#include "world_random.h"

namespace grub {

class StateHash;

/// Points that rise from the cell where they were earned.
struct ScorePopup {
    int x = 0;  // pixels in the level
    int y = 0;  // where the next game frame shows it
    int value = 0;
    int ttl = 0;         // game frames for which it is still shown; below 1 the entry is free
    bool shown = false;  // in this game frame, one pixel below `y`

    friend bool operator==(const ScorePopup&, const ScorePopup&) = default;
};

/// The rising numbers. They go on behind dialogs too, and play does not depend on them.
class ScorePopups {
public:
    /// Shows points at a cell; nothing when every entry is in use.
    void add(int points, int cx, int cy);
    /// One game frame: every number that has time left is shown, then rises and grows older.
    void finishFrame();
    /// All entries, for drawing those that are `shown`.
    [[nodiscard]] const std::array<ScorePopup, kPopupCount>& entries() const { return entries_; }

    friend bool operator==(const ScorePopups&, const ScorePopups&) = default;

private:
    std::array<ScorePopup, kPopupCount> entries_{};
};

/// What all actors of a world share during an attempt at a level: the field and what is on it beside the hero, chance,
/// the score and how it ends. Actors get it for each step and keep no reference to it.
struct Attempt {
    LevelMap map;
    WorldRandom random;
    AnimationFrameCounts frameCounts;
    SoundRequests sounds;  // of this game frame
    std::vector<Enemy> enemies;
    std::vector<AnimatedItem> decorations;
    Bonuses bonuses;
    ScorePopups popups;
    int levelIndex = 0;
    int score = 0;
    int lives = 0;
    bool ended = false;
    LossCause cause = LossCause::Quit;  // means something once `ended`

    /// Counts points earned at a cell and lets them rise there.
    void addScore(int points, int cx, int cy);
    /// Points and sound for a key just taken from a cell.
    void rewardKey(int cx, int cy);
    /// Ends the attempt, or gives an end that has been reached another cause.
    void end(LossCause why);

    /// Adds everything that play depends on, so not the rising numbers.
    void addTo(StateHash& hash) const;

    friend bool operator==(const Attempt&, const Attempt&) = default;
};

}  // namespace grub
