#include "dsound_device.h"

#include <string>

#include <dxerr8.h>

#include "dsound_buffer.h"

namespace grub {

namespace {

// Tells the player why there will be no sound. Always false.
bool complain(const std::string& text, HRESULT failure) {
    const std::string full = text + " (" + DXGetErrorString8A(failure) + ")";
    MessageBoxA(nullptr, full.c_str(), "DirectX error", MB_OK | MB_ICONERROR | MB_TASKMODAL);
    return false;
}

}  // namespace

DSoundDevice::DSoundDevice(HWND window) : window_(window) {}

DSoundDevice::~DSoundDevice() { DSoundDevice::shutdown(); }

bool DSoundDevice::init() {
    const bool ready = openCard() && createEvents() && startThreads();
    if (!ready) shutdown();
    return ready;
}

bool DSoundDevice::shutdown() {
    endThreads();
    slots_->stopAll();
    for (OwnedHandle& event : events_) event.reset();
    directSound_.reset();
    return true;
}

bool DSoundDevice::openCard() {
    IDirectSound8* directSound = nullptr;
    HRESULT result = DirectSoundCreate8(nullptr, &directSound, nullptr);
    if (FAILED(result)) return complain("Can't creates an instance of a DirectSound8 object.", result);
    directSound_.reset(directSound);
    result = directSound_->SetCooperativeLevel(window_, DSSCL_PRIORITY);
    if (SUCCEEDED(result)) return true;
    return complain("Can't sets the cooperative level of the application for sound device.", result);
}

std::unique_ptr<SoundBuffer> DSoundDevice::createSound() {
    return std::make_unique<DSoundBuffer>(directSound_.get(), slots_);
}

bool DSoundDevice::play(SoundBuffer& sound, bool loop) {
    auto& buffer = static_cast<DSoundBuffer&>(sound);
    DWORD status = 0;
    if (!isReady() || !buffer.readStatus(status)) return false;
    if ((status & DSBSTATUS_PLAYING) != 0) return true;
    return buffer.streams() ? playStream(buffer, loop) : buffer.fillAll(loop) && buffer.start(loop);
}

// The ring goes round and round; `loop` decides what happens when the decoder has ended.
bool DSoundDevice::playStream(DSoundBuffer& sound, bool loop) {
    slots_->release(sound);  // it may have been stopped by others than us
    if (!sound.fillAll(loop)) return false;
    const auto slot = slots_->findFree();
    if (!slot || !sound.notifyBy(waitedFor_[*slot])) return false;
    slots_->take(*slot, sound, loop);
    if (sound.start(true)) return true;
    slots_->release(sound);
    return false;
}

bool DSoundDevice::stop(SoundBuffer& sound) {
    auto& buffer = static_cast<DSoundBuffer&>(sound);
    if (!isReady() || !buffer.exists() || !buffer.halt()) return false;
    if (buffer.streams()) slots_->release(buffer);
    return true;
}

}  // namespace grub
