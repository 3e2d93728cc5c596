#include "control/call_controls.h"

#include <algorithm>
#include <mutex>
#include <utility>

#include "desktop/window.h"
#include "dsound/secondary_buffer.h"
#include "dsound/sound_card.h"

namespace platform::testing {
namespace {

/// The controls that exist. The lock guards all their members, too.
struct Controls {
    std::mutex lock;
    std::vector<CallControls*> list;
};

Controls& all() {
    static auto* controls = new Controls;
    return *controls;
}

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

CallControls::CallControls() {
    const std::lock_guard guard(all().lock);
    all().list.push_back(this);
    callObserver.store(announced, std::memory_order_release);
}

CallControls::~CallControls() {
    const std::lock_guard guard(all().lock);
    std::erase(all().list, this);
    if (all().list.empty()) callObserver.store(nullptr, std::memory_order_release);
}

HRESULT CallControls::announced(Call call, DWORD first, DWORD second) {
    const std::lock_guard guard(all().lock);
    HRESULT result = S_OK;
    for (CallControls* one : all().list) {
        const HRESULT answer = one->answer(call, first);
        if (!FAILED(result)) result = answer;
    }
    for (CallControls* one : all().list) one->calls_.push_back({call, first, second, result});
    return result;
}

HRESULT CallControls::answer(Call call, DWORD first) {
    if (const auto known = faults_.find(call); known != faults_.end()) {
        Fault& fault = known->second;
        if (fault.successes == 0) return fault.result;
        --fault.successes;
    }
    return observer_ ? observer_(call, first) : S_OK;
}

void CallControls::fail(Call call, HRESULT result, int successes) {
    const std::lock_guard guard(all().lock);
    if (FAILED(result)) {
        faults_[call] = {result, successes};
    } else {
        faults_.erase(call);
    }
}

void CallControls::observe(std::function<HRESULT(Call, DWORD)> observer) {
    const std::lock_guard guard(all().lock);
    observer_ = std::move(observer);
}

std::vector<CallRecord> CallControls::calls() const {
    const std::lock_guard guard(all().lock);
    return calls_;
}

std::size_t CallControls::count(Call call) const {
    const std::lock_guard guard(all().lock);
    return static_cast<std::size_t>(std::ranges::count(calls_, call, &CallRecord::function));
}

void CallControls::forgetCalls() {
    const std::lock_guard guard(all().lock);
    calls_.clear();
}

DeviceControls::DeviceControls() {
    observe([this](Call call, DWORD first) { return answer(call, first); });
}

DeviceControls::~DeviceControls() { observe({}); }

void DeviceControls::refuse(D3DFORMAT format, HRESULT result) {
    const std::lock_guard guard(all().lock);
    refusedFormats_[format] = result;
}

void DeviceControls::loseDevice(int tests) {
    const std::lock_guard guard(all().lock);
    lost_ = true;
    testsLeft_ = tests;
}

std::vector<std::uint32_t> DeviceControls::frame() {
    const auto window = ownWindow();
    if (!window) return {};
    auto picture = window->presenter.latest();
    for (std::uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFF;
    return std::move(picture.pixels);
}

HRESULT DeviceControls::answer(Call call, DWORD first) {
    switch (call) {
        case Call::CheckDeviceType:
        case Call::CheckDeviceFormat: {
            const auto refused = refusedFormats_.find(first);
            return refused == refusedFormats_.end() ? D3D_OK : refused->second;
        }
        case Call::Present: return lost_ ? D3DERR_DEVICELOST : D3D_OK;
        case Call::TestCooperativeLevel:
            if (!lost_) return D3D_OK;
            return testsLeft_-- > 0 ? D3DERR_DEVICELOST : D3DERR_DEVICENOTRESET;
        case Call::Reset:
            if (lost_ && testsLeft_ > 0) return D3DERR_DEVICELOST;
            lost_ = false;
            return D3D_OK;
        default: return D3D_OK;
    }
}

void SoundControls::loseBuffers() {
    forEachVoice([](const SoundVoice& voice) { voice.memory().lose(); });
}

std::vector<VoiceState> voices() {
    std::vector<VoiceState> states;
    forEachVoice([&](const SoundVoice& voice) { states.push_back(stateOf(voice)); });
    return states;
}

std::vector<BYTE> heldSamples(IDirectSoundBuffer& buffer) { return static_cast<SecondaryBuffer&>(buffer).held(); }

}  // namespace platform::testing
