#include "sound_bank.h"

#include <algorithm>
#include <mutex>

#include "engine_services.h"
#include "ini_table.h"
#include "sound_keys.h"

namespace grub {

namespace {

constexpr const char* kTable = "sound\\sound.ini";
constexpr std::uint32_t kTableBuckets = 1097;

SoundBank*& currentBank() {
    static SoundBank* bank = nullptr;
    return bank;
}

constexpr std::uint32_t kLoudestLevel = 9;
constexpr int kMenuMoveSofter = 2;  // levels: the tick of the menu comes often

// Per cent of loudness, also out of range: the sound takes what lies beyond as full, or silent.
int percentOf(std::uint32_t level, int softer = 0) {
    const int base = level != 0 ? 50 : 0;
    return base + 7 * (static_cast<int>(std::min(level, kLoudestLevel)) - softer);
}

}  // namespace

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
        if (!secondPhase) loadMusic(table);
        loadEffects(table, secondPhase ? kFirstOfSecondPhase : 0, secondPhase ? kSoundCount : kFirstOfSecondPhase);
    }
    const std::lock_guard lock(lock_);
    loaded_ = true;
    return true;
}

void SoundBank::loadMusic(const IniTable& table) {
    for (std::size_t i = 0; i < music_.size(); ++i) {
        auto clip = loadClip<MusicClip>(table, "music", kMusicKeys[i]);
        if (!clip) continue;
        const std::lock_guard lock(lock_);
        music_[i].swap(clip);
    }
}

void SoundBank::loadEffects(const IniTable& table, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) {
        auto clip = loadClip<SoundClip>(table, "sound", kEffectKeys[i]);
        if (!clip) continue;
        const std::lock_guard lock(lock_);
        effects_[i].swap(clip);
    }
}

// Null without a file. A missing key asks for the folder itself, which no package holds as a file.
template <class Clip>
std::unique_ptr<Clip> SoundBank::loadClip(const IniTable& table, const char* section, const char* key) {
    const EngineString name = EngineString("sound\\") + table.getString(section, key);
    if (!package_.exists(name)) return nullptr;
    auto clip = std::make_unique<Clip>();
    clip->setData(package_.load(name));
    clip->load();
    return clip;
}

void SoundBank::unloadEffects() {
    const std::lock_guard lock(lock_);
    for (const auto& clip : effects_) {
        if (clip) clip->unload();
    }
}

SoundBuffer* SoundBank::effect(SoundId id) const {
    const auto index = static_cast<std::size_t>(id);
    return loaded_ && index < effects_.size() && effects_[index] ? effects_[index]->sound() : nullptr;
}

SoundBuffer* SoundBank::track(MusicId id) const {
    const auto index = static_cast<std::size_t>(id);
    return loaded_ && index < music_.size() && music_[index] ? music_[index]->sound() : nullptr;
}

void SoundBank::playEffect(SoundId id) {
    const std::lock_guard lock(lock_);
    AudioDevice* const device = EngineServices::soundDevice();
    if (SoundBuffer* const sound = effect(id); sound != nullptr && device != nullptr) device->play(*sound, false);
}

void SoundBank::stopEffect(SoundId id) {
    const std::lock_guard lock(lock_);
    AudioDevice* const device = EngineServices::soundDevice();
    if (SoundBuffer* const sound = effect(id); sound != nullptr && device != nullptr) device->stop(*sound);
}

void SoundBank::playMusic(MusicId id) {
    const std::lock_guard lock(lock_);
    AudioDevice* const device = EngineServices::soundDevice();
    if (SoundBuffer* const sound = track(id); sound != nullptr && device != nullptr) device->playLooped(*sound);
}

void SoundBank::stopMusic(MusicId id) {
    const std::lock_guard lock(lock_);
    AudioDevice* const device = EngineServices::soundDevice();
    if (SoundBuffer* const sound = track(id); sound != nullptr && device != nullptr) device->stopMusic(*sound);
}

void SoundBank::setEffectsVolume(std::uint32_t level) {
    const std::lock_guard lock(lock_);
    effectsLevel_ = level;
    for (std::size_t i = 0; i < effects_.size(); ++i) {
        const auto id = static_cast<SoundId>(i);
        const int softer = id == SoundId::MenuMove ? kMenuMoveSofter : 0;
        if (SoundBuffer* const sound = effect(id)) sound->setVolume(percentOf(level, softer));
    }
}

void SoundBank::setMusicVolume(std::uint32_t level) {
    const std::lock_guard lock(lock_);
    for (std::size_t i = 0; i < music_.size(); ++i) {
        if (SoundBuffer* const sound = track(static_cast<MusicId>(i))) sound->setVolume(percentOf(level));
    }
}

std::uint32_t SoundBank::effectsLevel() const {
    const std::lock_guard lock(lock_);
    return effectsLevel_;
}

}  // namespace grub
