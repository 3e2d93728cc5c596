#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine_services.h"
#include "sound_decoder.h"

namespace grub {

/// The calls of a `FakeAudioDevice` and its sounds, in order, such as "play 120", "loop 120", "stop 120",
/// "volume 120 57" or "destroy 120". The number is the bytes of PCM of the sound. A target that includes this file must
/// link the sound decoders.
struct AudioLog {
    std::vector<std::string> calls;

    /// Returns the calls and empties the log.
    std::vector<std::string> take() { return std::exchange(calls, {}); }
    [[nodiscard]] bool has(const std::string& call) const { return std::ranges::find(calls, call) != calls.end(); }
};

/// A sound that only writes to the log.
class FakeSound final : public SoundBuffer {
public:
    explicit FakeSound(std::shared_ptr<AudioLog> log) : log_(std::move(log)) {}
    ~FakeSound() override { note("destroy"); }
    [[nodiscard]] std::unique_ptr<SoundBuffer> clone() const override {
        note("clone");
        auto twin = std::make_unique<FakeSound>(log_);
        if (decoder_) twin->decoder_ = decoder_->clone();
        return twin;
    }
    bool create(std::unique_ptr<SoundDecoder> decoder) override { return (decoder_ = std::move(decoder)) != nullptr; }
    bool setPan(std::int32_t percent) override { return note("pan", " " + std::to_string(percent)); }
    bool setVolume(std::int32_t percent) override { return note("volume", " " + std::to_string(percent)); }

    /// Writes a call to the log. Always true.
    bool note(const std::string& call, const std::string& tail = "") const {
        log_->calls.push_back(call + " " + (decoder_ ? std::to_string(decoder_->dataSize()) : "nothing") + tail);
        return true;
    }

private:
    std::shared_ptr<AudioLog> log_;
    std::unique_ptr<SoundDecoder> decoder_;
};

/// A device without a card.
class FakeAudioDevice final : public AudioDevice {
public:
    explicit FakeAudioDevice(std::shared_ptr<AudioLog> log) : log_(std::move(log)) {}
    /// Puts a device into the sound slot of `EngineServices` and returns its log.
    static std::shared_ptr<AudioLog> install() {
        auto log = std::make_shared<AudioLog>();
        EngineServices::installSoundDevice(std::make_unique<FakeAudioDevice>(log));
        return log;
    }

    bool init() override { return true; }
    bool shutdown() override { return true; }
    [[nodiscard]] bool isReady() const override { return true; }
    [[nodiscard]] std::unique_ptr<SoundBuffer> createSound() override { return make("effect"); }
    [[nodiscard]] std::unique_ptr<SoundBuffer> createMusic() override { return make("music"); }
    bool play(SoundBuffer& sound, bool loop) override { return noteOf(sound, loop ? "play looped" : "play"); }
    bool playLooped(SoundBuffer& sound) override { return noteOf(sound, "loop"); }
    bool stop(SoundBuffer& sound) override { return noteOf(sound, "stop"); }
    bool stopMusic(SoundBuffer& sound) override { return noteOf(sound, "stop music"); }

private:
    std::unique_ptr<SoundBuffer> make(const char* kind) {
        log_->calls.emplace_back(kind);
        return std::make_unique<FakeSound>(log_);
    }
    static bool noteOf(SoundBuffer& sound, const char* call) { return static_cast<FakeSound&>(sound).note(call); }

    std::shared_ptr<AudioLog> log_;
};

}  // namespace grub
