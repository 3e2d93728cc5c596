#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

/// The functions of the DirectSound layer that a test can count and make fail.
enum class SoundFunction : std::uint8_t {
    DirectSoundCreate8,
    CreateSoundBuffer,
    DuplicateSoundBuffer,
    SetCooperativeLevel,
    Compact,
    QueryInterface,
    GetStatus,
    GetCurrentPosition,
    Lock,
    Unlock,
    Play,
    Stop,
    SetCurrentPosition,
    SetVolume,
    SetPan,
    Restore,
    SetNotificationPositions,
};

/// How many there are.
inline constexpr std::size_t kSoundFunctions = static_cast<std::size_t>(SoundFunction::SetNotificationPositions) + 1;

}  // namespace platform
