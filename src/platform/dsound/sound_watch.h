#pragma once

#include <atomic>

#include <dsound.h>

#include "sound_function.h"

namespace platform {

/// Sees every call of the DirectSound layer before it acts. Called from whatever thread makes the call.
class SoundWatch {
public:
    SoundWatch() = default;
    SoundWatch(const SoundWatch&) = delete;
    SoundWatch& operator=(const SoundWatch&) = delete;
    virtual ~SoundWatch() = default;

    /// A negative answer becomes the result of the call, which then does nothing.
    virtual HRESULT called(SoundFunction function) = 0;
    /// A position event is about to be set.
    virtual void eventSet() = 0;
};

/// The watch of this moment, null outside of tests.
inline std::atomic<SoundWatch*> soundWatch{nullptr};

/// Tells the watch of a call; negative when the call has to fail.
inline HRESULT announceCall(SoundFunction function) {
    SoundWatch* const watch = soundWatch.load(std::memory_order_acquire);
    return watch == nullptr ? DS_OK : watch->called(function);
}

}  // namespace platform
