#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "critical_section.h"
#include "music_id.h"
#include "resource_source.h"
#include "sound_clip.h"
#include "sound_id.h"

namespace grub {

class IniTable;

/// All effects and music of the game by number. What is not loaded, for whatever reason, is silent, and nobody is told.
/// Played from the game thread; the second phase may be loaded by another one meanwhile.
class SoundBank {
public:
    /// Nothing is loaded yet. `package` must outlive the bank.
    explicit SoundBank(ResourceSource& package);
    SoundBank(const SoundBank&) = delete;
    SoundBank& operator=(const SoundBank&) = delete;
    /// Is the current bank no longer.
    ~SoundBank();

    /// The bank that scenes and menus play from, null if there is none. Chosen while no scene runs.
    [[nodiscard]] static SoundBank* current();
    static void setCurrent(SoundBank* bank);

    /// Reads the files that "sound\sound.ini" names: music and the effects below 17, or the effects from 17 on. What
    /// was loaded before is replaced. New sounds have full volume until a volume is set. Always true.
    bool load(bool secondPhase);
    /// Destroys the sounds of all effects, which fall silent until they are loaded again.
    void unloadEffects();

    /// Plays once; a sound that is still playing goes on as it is. Any number is allowed.
    void playEffect(SoundId id);
    void stopEffect(SoundId id);
    /// Plays round and round.
    void playMusic(MusicId track);
    void stopMusic(MusicId track);

    /// Levels are those of the settings, 0 (silent) to 9; they count for what is loaded now. The menu's own tick is
    /// softer by two levels.
    void setEffectsVolume(std::uint32_t level);
    void setMusicVolume(std::uint32_t level);
    /// The level of the last `setEffectsVolume` since the last `load`; 0 without one.
    [[nodiscard]] std::uint32_t effectsLevel() const;

private:
    void loadMusic(const IniTable& table);
    void loadEffects(const IniTable& table, std::size_t first, std::size_t end);
    template <class Clip>
    std::unique_ptr<Clip> loadClip(const IniTable& table, const char* section, const char* key);
    [[nodiscard]] SoundBuffer* effect(SoundId id) const;
    [[nodiscard]] SoundBuffer* track(MusicId id) const;

    ResourceSource& package_;
    mutable CriticalSection lock_;  // over all below; not held while files are read
    bool loaded_ = false;
    std::array<std::unique_ptr<SoundClip>, kSoundCount> effects_;
    std::array<std::unique_ptr<MusicClip>, kMusicCount> music_;
    std::uint32_t effectsLevel_ = 0;
};

}  // namespace grub
