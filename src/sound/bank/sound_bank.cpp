#include "sound_bank.h"

#include <algorithm>
#include <mutex>

#include "engine_services.h"
#include "ini_table.h"
#include "sound_decoder.h"

namespace grub {

namespace {

constexpr const char* kTable = "sound\\sound.ini";
constexpr std::uint32_t kTableBuckets = 1097;

SoundBank*& currentBank() {
    static SoundBank* bank = nullptr;
    return bank;
}

constexpr std::uint32_t kLoudestLevel = 9;
constexpr int kMenuMoveSofter = 2;  // levels: the tick of the menus comes often

// Loudness in per cent. It may lie below 0 or above 100, which a sound takes as silent or full.
int percentOf(std::uint32_t level, int softer = 0) {
    const int base = level != 0 ? 50 : 0;
    return base + 7 * (static_cast<int>(std::min(level, kLoudestLevel)) - softer);
}

// Null when the place is empty, the clip has no sound, or the number has no place.
template <class Clips, class Id>
SoundBuffer* soundAt(const Clips& clips, Id id) {
    const auto index = static_cast<std::size_t>(id);
    return index < clips.size() && clips[index] ? clips[index]->sound() : nullptr;
}

}  // namespace

AudioClip::AudioClip(const AudioClip& other)
    : sound_(other.sound_ ? other.sound_->clone() : nullptr), file_(other.file_) {}

AudioClip& AudioClip::operator=(const AudioClip& other) {
    if (this == &other) return *this;
    file_ = other.file_;
    sound_ = other.sound_ ? other.sound_->clone() : nullptr;
    return *this;
}

bool AudioClip::loadWith(std::unique_ptr<SoundBuffer> (AudioDevice::*make)()) {
    AudioDevice* const device = EngineServices::soundDevice();
    if (device == nullptr) return false;
    auto decoder = createSoundDecoder(file_);
    if (!decoder) return false;
    sound_ = (device->*make)();
    return sound_ && sound_->create(std::move(decoder));
}

SoundBank::SoundBank(ResourceSource& package) : package_(package) {}

SoundBank::~SoundBank() {
    if (current() == this) setCurrent(nullptr);
}

SoundBank* SoundBank::current() { return currentBank(); }

void SoundBank::setCurrent(SoundBank* bank) { currentBank() = bank; }

bool SoundBank::load(bool secondPhase) {
    {
        const std::lock_guard lock(lock_);
        effectsLevel_ = 0;
    }
    if (package_.exists(kTable)) {
        const IniTable table(package_.load(kTable), kTableBuckets);
        const std::span effects(kEffectKeys);
        if (secondPhase) {
            loadClips(table, "sound", effects.subspan(kFirstOfSecondPhase), kFirstOfSecondPhase, effects_);
        } else {
            loadClips(table, "music", kMusicKeys, 0, music_);
            loadClips(table, "sound", effects.first(kFirstOfSecondPhase), 0, effects_);
        }
    }
    const std::lock_guard lock(lock_);
    loaded_ = true;
    return true;
}

// Loads the clips of `keys` into their places, from `first` on. A missing key asks for the folder itself, which no
// package holds as a file; such a place keeps its clip.
template <class Clip, std::size_t count>
void SoundBank::loadClips(const IniTable& table, const char* section, std::span<const char* const> keys,
                          std::size_t first, std::array<std::unique_ptr<Clip>, count>& clips) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const EngineString name = EngineString("sound\\") + table.getString(section, keys[i]);
        if (!package_.exists(name)) continue;
        auto clip = std::make_unique<Clip>();
        clip->setData(package_.load(name));
        clip->load();
        const std::lock_guard lock(lock_);
        clips[first + i].swap(clip);
    }
}

void SoundBank::unloadEffects() {
    const std::lock_guard lock(lock_);
    for (const auto& clip : effects_) {
        if (clip) clip->unload();
    }
}

SoundBuffer* SoundBank::soundOf(SoundId id) const { return loaded_ ? soundAt(effects_, id) : nullptr; }

SoundBuffer* SoundBank::soundOf(MusicId id) const { return loaded_ ? soundAt(music_, id) : nullptr; }

// Calls `action(device, sound)` under the lock, if there are both.
template <class Id, class Action>
void SoundBank::withSound(Id id, Action action) {
    const std::lock_guard lock(lock_);
    AudioDevice* const device = EngineServices::soundDevice();
    SoundBuffer* const sound = soundOf(id);
    if (device != nullptr && sound != nullptr) action(*device, *sound);
}

void SoundBank::playEffect(SoundId id) {
    withSound(id, [](AudioDevice& device, SoundBuffer& sound) { device.play(sound, false); });
}

void SoundBank::stopEffect(SoundId id) {
    withSound(id, [](AudioDevice& device, SoundBuffer& sound) { device.stop(sound); });
}

void SoundBank::playMusic(MusicId id) {
    withSound(id, [](AudioDevice& device, SoundBuffer& sound) { device.playLooped(sound); });
}

void SoundBank::stopMusic(MusicId id) {
    withSound(id, [](AudioDevice& device, SoundBuffer& sound) { device.stopMusic(sound); });
}

void SoundBank::setEffectsVolume(std::uint32_t level) {
    const std::lock_guard lock(lock_);
    effectsLevel_ = level;
    for (std::size_t i = 0; i < effects_.size(); ++i) {
        const auto id = static_cast<SoundId>(i);
        const int softer = id == SoundId::MenuMove ? kMenuMoveSofter : 0;
        if (SoundBuffer* const sound = soundOf(id)) sound->setVolume(percentOf(level, softer));
    }
}

void SoundBank::setMusicVolume(std::uint32_t level) {
    const std::lock_guard lock(lock_);
    for (std::size_t i = 0; i < music_.size(); ++i) {
        if (SoundBuffer* const sound = soundOf(static_cast<MusicId>(i))) sound->setVolume(percentOf(level));
    }
}

std::uint32_t SoundBank::effectsLevel() const {
    const std::lock_guard lock(lock_);
    return effectsLevel_;
}

}  // namespace grub
