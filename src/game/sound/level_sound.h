#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "sound_bank.h"
#include "sound_requests.h"

namespace grub {

/// Volume levels of the settings, 0 to 8. Until the player chooses others, music stays well behind the effects.
struct Volumes {
    int effects = 7;
    int music = 3;
};

/// What a level sounds like: plays what the world asks for, and the music of the level, from the current sound bank.
/// Without a bank all is silent. Game thread, but for `loadSecondPhase`.
class LevelSound {
public:
    /// Changes the volumes, at once for all sounds that are loaded.
    void setVolumes(Volumes volumes);
    /// Gives both volumes to all sounds that are loaded. A load forgets them.
    void applyVolumes() const;
    /// Loads the sounds of bonuses and lost levels; on the loader thread.
    static void loadSecondPhase();

    /// Starts and stops what a game frame asks for, in its order.
    void play(std::span<const SoundRequest> requests) const;

    /// The next level draws its track by chance, as the first one after the start does.
    void forgetTrack() { track_.reset(); }
    /// Starts the music of a level: from one level to the next the two tracks take turns. Draws a number of the
    /// process's sequence when it chooses by chance.
    void startMusic();
    void stopMusic() const;
    /// The track of the level; nothing before the first level.
    [[nodiscard]] std::optional<MusicId> track() const { return track_; }

private:
    Volumes volumes_;
    std::optional<MusicId> track_;
};

}  // namespace grub
