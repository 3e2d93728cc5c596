#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include <dsound.h>
#include <windows.h>

#include "dsound_buffer.h"
#include "engine_services.h"
#include "system_objects.h"

namespace grub {

/// Closes a handle.
struct HandleCloser {
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};

/// Owns the handle of an event or a thread, or is null.
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

/// Plays with DirectSound 8. Long sounds, and sounds of unknown length, stream: two threads of the highest priority
/// refill a half of their ring when it has been played.
class DSoundDevice final : public AudioDevice {
public:
    /// Opens nothing; `init` does. `window` is the program's window.
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
    static constexpr std::size_t kStopEvent = StreamSlots::kCount;  // behind the events of the slots

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
    std::array<OwnedHandle, StreamSlots::kCount + 1> events_;  // one for each slot, then the one that ends the threads
    std::array<HANDLE, StreamSlots::kCount + 1> waitedFor_{};  // the same, as the wait wants them
    std::array<OwnedHandle, 2> threads_;
};

}  // namespace grub
