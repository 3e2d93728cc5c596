#include "dsound_device.h"

#include <algorithm>
#include <string>

#include <dxerr8.h>

namespace grub {

namespace {

// Tells the player why there will be no sound. Always returns false.
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

// The event of a slot wakes one thread and resets itself. The last event, which ends the threads, stays set.
bool DSoundDevice::createEvents() {
    for (std::size_t i = 0; i < events_.size(); ++i) {
        events_[i].reset(CreateEventA(nullptr, i == kStopEvent ? TRUE : FALSE, FALSE, nullptr));
        waitedFor_[i] = events_[i].get();
    }
    return std::ranges::all_of(events_, [](const OwnedHandle& event) { return event != nullptr; });
}

bool DSoundDevice::startThreads() {
    for (OwnedHandle& thread : threads_) {
        thread.reset(CreateThread(nullptr, 0, streamOn, this, 0, nullptr));
        if (!thread) return false;
        SetThreadPriority(thread.get(), THREAD_PRIORITY_HIGHEST);
    }
    return true;
}

void DSoundDevice::endThreads() {
    const bool told = events_[kStopEvent] && SetEvent(events_[kStopEvent].get()) != FALSE;
    for (OwnedHandle& thread : threads_) {
        if (!thread) continue;
        if (told) {
            WaitForSingleObject(thread.get(), INFINITE);
        } else {
            TerminateThread(thread.get(), 0xFFFFFFFF);
        }
        thread.reset();
    }
}

DWORD WINAPI DSoundDevice::streamOn(LPVOID device) {
    static_cast<DSoundDevice*>(device)->stream();
    return 0;
}

void DSoundDevice::stream() {
    while (true) {
        const DWORD woken =
            WaitForMultipleObjects(static_cast<DWORD>(waitedFor_.size()), waitedFor_.data(), FALSE, INFINITE) -
            WAIT_OBJECT_0;
        if (woken == kStopEvent) return;
        if (woken < kStopEvent) slots_->refill(woken);
    }
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

// The ring always plays in a loop; `loop` decides what happens when the decoder has ended.
bool DSoundDevice::playStream(DSoundBuffer& sound, bool loop) {
    slots_->release(sound);  // if the buffer has stopped by itself, the sound still holds its slot
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
