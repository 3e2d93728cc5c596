#pragma once

#include "animation_frame_counts.h"
#include "level_map.h"
#include "loss_cause.h"
#include "sound_requests.h"
#include "world_random.h"

namespace grub {

/// What everybody in a world shares during an attempt at a level: the field, chance, the score and how it ends. Actors
/// are handed it for each step and keep nothing of it.
struct Attempt {
    LevelMap map;
    WorldRandom random;
    AnimationFrameCounts frameCounts;
    SoundRequests sounds;  // of this frame
    int levelIndex = 0;
    int score = 0;
    int lives = 0;
    bool ended = false;
    LossCause cause = LossCause::Quit;  // means something once `ended`

    /// Counts points earned at a cell.
    void addScore(int points, int cx, int cy);
    /// Points and sound for a key just taken from a cell.
    void rewardKey(int cx, int cy);
    /// Ends the attempt, or gives an end that has been reached another cause.
    void end(LossCause why);

    friend bool operator==(const Attempt&, const Attempt&) = default;
};

}  // namespace grub
