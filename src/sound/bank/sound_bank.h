#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "block_pool.h"
#include "engine_services.h"
#include "resource_source.h"
#include "sound_id.h"
#include "system_objects.h"

namespace grub {

/// The music tracks by their numbers.
enum class MusicId : std::uint8_t { Menu = 0, Game1 = 1, Game2 = 2 };
inline constexpr int kMusicCount = 3;

/// The keys of section "music" of the sound table, by `MusicId`.
inline constexpr std::array<const char*, kMusicCount> kMusicKeys{"menu", "game1", "game2"};

/// The keys of section "sound", by `SoundId`.
inline constexpr std::array<const char*, kSoundCount> kEffectKeys{
    "break",   "getkey",   "rat",       "winlevel",  "opendoor", "water",      // hero, level end, door, drops
    "lov",     "menumove", "menulist2", "menulist1",                           // traps, menus
    "lovrat",  "padenie",  "landing",   "steps",     "trub",     "menuclick",  // traps, hero, menus
    "upsteps",                                                                 // hero
    "shield",  "anchor",   "loose",     "inv",       "bomb",     "getbonus",   // bonuses, level end
    "heart",   "skull",
};
static_assert(kEffectKeys.back() != nullptr, "a sound lacks its key");

/// The first phase of loading loads the effects below this one, the second phase the others.
inline constexpr std::size_t kFirstOfSecondPhase = static_cast<std::size_t>(SoundId::Shield);

class IniTable;

/// A sound file in memory and, after loading, the playable sound that the device made of it.
class AudioClip {
public:
    AudioClip() = default;
    /// A copy shares the file's bytes and clones the other's sound, if there is one.
    AudioClip(const AudioClip& other);
    AudioClip& operator=(const AudioClip& other);

    /// Takes the bytes of a WAV or Ogg Vorbis file. The present sound stays until `load`.
    void setData(SharedBuffer file) { file_ = std::move(file); }
    /// Null before `load`, and for a file that no decoder reads; owned by the clip.
    [[nodiscard]] SoundBuffer* sound() const { return sound_.get(); }
    /// Destroys the sound, which falls silent, and keeps the file.
    void unload() { sound_.reset(); }

protected:
    ~AudioClip() = default;

    /// Makes the sound with this operation of the device. Returns false when no decoder reads the file, or when the
    /// device is absent or refuses.
    bool loadWith(std::unique_ptr<SoundBuffer> (AudioDevice::*make)());

private:
    std::unique_ptr<SoundBuffer> sound_;
    SharedBuffer file_;
};

/// The clip of an effect.
class SoundClip final : public AudioClip, public PoolAllocated<SoundClip> {
public:
    /// Makes the sound in place of the former one; see `loadWith`.
    bool load() { return loadWith(&AudioDevice::createSound); }
};

/// The clip of a music track.
class MusicClip final : public AudioClip, public PoolAllocated<MusicClip> {
public:
    /// As for an effect.
    bool load() { return loadWith(&AudioDevice::createMusic); }
};

/// All effects and music of the game by number. A sound that cannot be loaded, for whatever reason, is silent; there is
/// no message. The game thread plays; another thread may load the second phase at the same time.
class SoundBank {
public:
    /// Loads nothing yet. `package` must outlive the bank.
    explicit SoundBank(ResourceSource& package);
    SoundBank(const SoundBank&) = delete;
    SoundBank& operator=(const SoundBank&) = delete;
    /// If this is the current bank, there is no current bank afterwards.
    ~SoundBank();

    /// The bank that scenes and menus play from, or null. Set it while no scene runs.
    [[nodiscard]] static SoundBank* current();
    static void setCurrent(SoundBank* bank);

    /// Reads the files that "sound\sound.ini" names: the music and the effects below 17, or the effects from 17 on.
    /// Replaces what was loaded before. New sounds have full volume until a volume is set. Always true.
    bool load(bool secondPhase);
    /// Destroys the sounds of all effects, which are silent until they are loaded again.
    void unloadEffects();

    /// Plays once. A sound that is still playing goes on and does not start again. Any number is allowed.
    void playEffect(SoundId id);
    void stopEffect(SoundId id);
    /// Plays in a loop.
    void playMusic(MusicId id);
    void stopMusic(MusicId id);

    /// Sets the loudness of all sounds loaded now. Levels are those of the settings, 0 (silent) to 9; the tick of the
    /// menus is two levels softer.
    void setEffectsVolume(std::uint32_t level);
    void setMusicVolume(std::uint32_t level);
    /// The level of the last `setEffectsVolume`; a `load` sets it to 0.
    [[nodiscard]] std::uint32_t effectsLevel() const;

private:
    template <class Clip, std::size_t count>
    void loadClips(const IniTable& table, const char* section, std::span<const char* const> keys, std::size_t first,
                   std::array<std::unique_ptr<Clip>, count>& clips);
    [[nodiscard]] SoundBuffer* soundOf(SoundId id) const;
    [[nodiscard]] SoundBuffer* soundOf(MusicId id) const;
    template <class Id, class Action>
    void withSound(Id id, Action action);

    ResourceSource& package_;
    mutable CriticalSection lock_;  // over all below; not held while files are read
    bool loaded_ = false;
    std::array<std::unique_ptr<SoundClip>, kSoundCount> effects_;
    std::array<std::unique_ptr<MusicClip>, kMusicCount> music_;
    std::uint32_t effectsLevel_ = 0;
};

/// Plays an effect from the current bank; silent without one.
inline void playEffect(SoundId id) {
    if (SoundBank* const bank = SoundBank::current()) bank->playEffect(id);
}

}  // namespace grub
