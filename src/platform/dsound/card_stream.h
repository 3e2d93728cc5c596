#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <thread>

#include <SDL.h>
#include <windows.h>

namespace platform {

class SoundMixer;

/// The system's sound device: asks a mixer for its sums, a period at a time, and hands its position events over to a
/// thread that sets them, because the device's callback must not wait for the game's locks.
class CardStream {
public:
    /// A device that is still silent; null when the system has none.
    [[nodiscard]] static std::unique_ptr<CardStream> open();
    ~CardStream();
    CardStream(const CardStream&) = delete;
    CardStream& operator=(const CardStream&) = delete;

    /// Frames a second that the device takes.
    [[nodiscard]] DWORD rate() const { return rate_; }
    /// Starts to play what the mixer gives; it outlives the stream.
    void start(SoundMixer& mixer);

private:
    CardStream() = default;

    static void fill(void* stream, std::uint8_t* bytes, int count);
    void setEvents();

    SDL_AudioDeviceID device_ = 0;
    DWORD rate_ = 0;
    SoundMixer* mixer_ = nullptr;
    SDL_sem* raised_ = nullptr;
    std::atomic<bool> ending_{false};  // set before the last post of the semaphore
    std::thread notifier_;
};

}  // namespace platform
