#include "sound_clip.h"

#include "engine_services.h"
#include "sound_decoder.h"

namespace grub {

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

}  // namespace grub
