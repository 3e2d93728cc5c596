#include "testing_dsound.h"

#include <array>
#include <limits>
#include <mutex>

#include "secondary_buffer.h"
#include "sound_card.h"
#include "sound_watch.h"

namespace platform::testing {
namespace {

VoiceState stateOf(const SoundVoice& voice) {
    const std::size_t position = voice.cursor() * voice.memory().format().frameBytes();
    return {.bytes = static_cast<DWORD>(voice.memory().bytes().size()),
            .position = static_cast<DWORD>(position),
            .volume = voice.volume(),
            .pan = voice.pan(),
            .playing = voice.playing(),
            .looping = voice.playing() && voice.looping(),
            .lost = voice.memory().lost()};
}

/// Calls `act(voice)` for each voice of the open card under the mixer's lock.
template <class Act>
void forEachVoice(Act&& act) {
    const auto card = presentSoundCard();
    if (!card) return;
    const std::lock_guard guard(card->mixer().lock());
    for (SoundVoice* voice : card->mixer().voices()) act(*voice);
}

}  // namespace

std::vector<VoiceState> voices() {
    std::vector<VoiceState> states;
    forEachVoice([&](const SoundVoice& voice) { states.push_back(stateOf(voice)); });
    return states;
}

std::vector<BYTE> heldSamples(IDirectSoundBuffer& buffer) { return static_cast<SecondaryBuffer&>(buffer).held(); }

class SoundControls::Watch final : public SoundWatch {
public:
    struct Fault {
        HRESULT result = DS_OK;
        int successes = 0;
    };

    HRESULT called(SoundFunction function) override {
        const std::lock_guard guard(mutex);
        const auto index = static_cast<std::size_t>(function);
        ++counts[index];
        Fault& fault = faults[index];
        if (fault.successes == 0) return fault.result;
        --fault.successes;
        return DS_OK;
    }

    void eventSet() override {
        const std::lock_guard guard(mutex);
        ++events;
    }

    mutable std::mutex mutex;  // guards everything here
    std::array<Fault, kSoundFunctions> faults{};
    std::array<std::size_t, kSoundFunctions> counts{};
    std::size_t events = 0;
};

SoundControls::SoundControls() : watch_(std::make_unique<Watch>()) {
    soundWatch.store(watch_.get(), std::memory_order_release);
}

SoundControls::~SoundControls() { soundWatch.store(nullptr, std::memory_order_release); }

void SoundControls::fail(SoundFunction function, HRESULT result, int successes) {
    const std::lock_guard guard(watch_->mutex);
    watch_->faults[static_cast<std::size_t>(function)] = {result, successes};
}

void SoundControls::loseBuffers() {
    forEachVoice([](const SoundVoice& voice) { voice.memory().lose(); });
}

std::size_t SoundControls::count(SoundFunction function) const {
    const std::lock_guard guard(watch_->mutex);
    return watch_->counts[static_cast<std::size_t>(function)];
}

std::size_t SoundControls::notifications() const {
    const std::lock_guard guard(watch_->mutex);
    return watch_->events;
}

}  // namespace platform::testing
