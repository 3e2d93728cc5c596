#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

#include <dsound.h>

#include "dsound/sound_card.h"
#include "kernel/objects.h"

/// Owns one reference to a buffer.
using BufferRef = platform::ObjectRef<IDirectSoundBuffer>;

/// Samples in 16 bits as a buffer stores them.
inline std::vector<BYTE> bytesOf(std::span<const std::int16_t> samples) {
    std::vector<BYTE> bytes(samples.size_bytes());
    std::memcpy(bytes.data(), samples.data(), bytes.size());
    return bytes;
}

/// Plain samples, `rate` frames a second.
inline WAVEFORMATEX waveFormat(int channels, int bits, DWORD rate) {
    const auto frame = static_cast<WORD>(channels * bits / 8);
    return {WAVE_FORMAT_PCM, static_cast<WORD>(channels), rate, rate * frame, frame, static_cast<WORD>(bits), 0};
}

/// Writes to a buffer from its byte `offset` on, across its end if need be.
inline HRESULT store(IDirectSoundBuffer& buffer, DWORD offset, std::span<const BYTE> bytes) {
    void* first = nullptr;
    void* second = nullptr;
    DWORD firstBytes = 0;
    DWORD secondBytes = 0;
    const auto count = static_cast<DWORD>(bytes.size());
    if (const HRESULT fault = buffer.Lock(offset, count, &first, &firstBytes, &second, &secondBytes, 0);
        FAILED(fault)) {
        return fault;
    }
    std::memcpy(first, bytes.data(), firstBytes);
    if (secondBytes > 0) std::memcpy(second, bytes.data() + firstBytes, secondBytes);
    return buffer.Unlock(first, firstBytes, second, secondBytes);
}

/// A sound card that plays what the test asks for; while it exists, none else is open.
class HandMixedCard {
public:
    HandMixedCard() {
        platform::setSoundOutput(platform::SoundOutput::ByHand);
        IDirectSound8* sound = nullptr;
        EXPECT_EQ(DirectSoundCreate8(nullptr, &sound, nullptr), DS_OK);
        sound_.reset(sound);
        EXPECT_EQ(sound->SetCooperativeLevel(reinterpret_cast<HWND>(std::uintptr_t{8}), DSSCL_PRIORITY), DS_OK);
    }
    ~HandMixedCard() { platform::setSoundOutput(platform::SoundOutput::Card); }
    HandMixedCard(const HandMixedCard&) = delete;
    HandMixedCard& operator=(const HandMixedCard&) = delete;

    /// The card's interface.
    IDirectSound8& sound() const { return *sound_; }

    /// A buffer with all controls that holds `bytes`.
    BufferRef bufferOf(const WAVEFORMATEX& format, std::span<const BYTE> bytes) const {
        BufferRef buffer = silence(format, static_cast<DWORD>(bytes.size()));
        EXPECT_EQ(store(*buffer, 0, bytes), DS_OK);
        return buffer;
    }
    /// The same with 16-bit samples.
    BufferRef bufferOf(int channels, DWORD rate, std::span<const std::int16_t> samples) const {
        return bufferOf(waveFormat(channels, 16, rate), bytesOf(samples));
    }
    /// The same, as it was created.
    BufferRef silence(WAVEFORMATEX format, DWORD bytes) const {
        constexpr DWORD kAll = DSBCAPS_LOCSOFTWARE | DSBCAPS_CTRLPAN | DSBCAPS_CTRLVOLUME | DSBCAPS_CTRLPOSITIONNOTIFY |
                               DSBCAPS_GETCURRENTPOSITION2;
        const DSBUFFERDESC description{sizeof(DSBUFFERDESC), kAll, bytes, 0, &format, {}};
        IDirectSoundBuffer* buffer = nullptr;
        EXPECT_EQ(sound_->CreateSoundBuffer(&description, &buffer, nullptr), DS_OK);
        return BufferRef(buffer);
    }
    /// A buffer on the same memory.
    BufferRef duplicate(IDirectSoundBuffer& buffer) const {
        IDirectSoundBuffer* copy = nullptr;
        EXPECT_EQ(sound_->DuplicateSoundBuffer(&buffer, &copy), DS_OK);
        return BufferRef(copy);
    }

    /// The next frames for the speakers, left and right in turn.
    static std::vector<std::int16_t> play(std::size_t frames) {
        std::vector<std::int16_t> stereo(2 * frames);
        platform::mixSound(stereo);
        return stereo;
    }

private:
    platform::ObjectRef<IDirectSound8> sound_;
};

/// Sets position events of a stopped buffer.
inline HRESULT setEvents(IDirectSoundBuffer& buffer, std::span<const DSBPOSITIONNOTIFY> at) {
    void* object = nullptr;
    if (const HRESULT fault = buffer.QueryInterface(IID_IDirectSoundNotify, &object); FAILED(fault)) return fault;
    const platform::ObjectRef<IDirectSoundNotify> notify(static_cast<IDirectSoundNotify*>(object));
    return notify->SetNotificationPositions(static_cast<DWORD>(at.size()), at.data());
}

/// DSBSTATUS_ flags.
inline DWORD statusOf(IDirectSoundBuffer& buffer) {
    DWORD status = 0;
    EXPECT_EQ(buffer.GetStatus(&status), DS_OK);
    return status;
}

/// The play cursor, in bytes.
inline DWORD positionOf(IDirectSoundBuffer& buffer) {
    DWORD position = 0;
    EXPECT_EQ(buffer.GetCurrentPosition(&position, nullptr), DS_OK);
    return position;
}
