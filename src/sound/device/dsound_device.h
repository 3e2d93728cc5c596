#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include <dsound.h>

#include "audio_device.h"
#include "com_ptr.h"
#include "owned_handle.h"
#include "stream_slots.h"

namespace grub {

class DSoundBuffer;

/// Plays with DirectSound 8. Long sounds, and those whose length nobody knows, stream: two threads of the highest
/// priority refill them whenever a half of their ring has been played.
class DSoundDevice final : public AudioDevice {
public:
    /// Nothing is opened before `init`. The window is the program's own.
    explicit DSoundDevice(HWND window);
    DSoundDevice(const DSoundDevice&) = delete;
    DSoundDevice& operator=(const DSoundDevice&) = delete;
    ~DSoundDevice() override;

    bool init() override;
    bool shutdown() override;
    [[nodiscard]] bool isReady() const override { return directSound_ != nullptr; }
    [[nodiscard]] std::unique_ptr<SoundBuffer> createSound() override;
    [[nodiscard]] std::unique_ptr<SoundBuffer> createMusic() override { return createSound(); }
    bool play(SoundBuffer& sound, bool loop) override;
    bool playLooped(SoundBuffer& sound) override { return play(sound, true); }
    bool stop(SoundBuffer& sound) override;
    bool stopMusic(SoundBuffer& sound) override { return stop(sound); }

private:
    static constexpr std::size_t kStopEvent = StreamSlots::kCount;  // its place behind those of the slots

    bool openCard();
    bool createEvents();
    bool startThreads();
    void endThreads();
    static DWORD WINAPI streamOn(LPVOID device);
    void stream();
    bool playStream(DSoundBuffer& sound, bool loop);

    HWND window_;
    ComPtr<IDirectSound8> directSound_;
    std::shared_ptr<StreamSlots> slots_ = std::make_shared<StreamSlots>();
    std::array<OwnedHandle, StreamSlots::kCount + 1> events_;  // one a slot, and the one that ends the threads
    std::array<HANDLE, StreamSlots::kCount + 1> waitedFor_{};  // the same, as the wait wants them
    std::array<OwnedHandle, 2> threads_;
};

}  // namespace grub
