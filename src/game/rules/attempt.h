#pragma once

#include <vector>

#include "animated_item.h"
#include "animation_frame_counts.h"
#include "bonus.h"
#include "enemy.h"
#include "level_map.h"
#include "loss_cause.h"
#include "score_popups.h"
#include "sound_requests.h"
#include "world_random.h"

namespace grub {

class StateHash;

/// What everybody in a world shares during an attempt at a level: the field and what is on it beside the hero,
/// chance, the score and how it ends. Actors are handed it for each step and keep nothing of it.
struct Attempt {
    LevelMap map;
    WorldRandom random;
    AnimationFrameCounts frameCounts;
    SoundRequests sounds;  // of this frame
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

    /// Adds everything that play depends on; not the rising numbers, which live with the pictures.
    void addTo(StateHash& hash) const;

    friend bool operator==(const Attempt&, const Attempt&) = default;
};

}  // namespace grub
