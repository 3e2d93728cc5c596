#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include <dsound.h>

#include "dsound/sound_card.h"
#include "kernel/objects.h"
#include "wav_writer.h"

/// Owns one reference to a buffer.
using BufferRef = platform::ObjectRef<IDirectSoundBuffer>;

/// 16-bit samples, channels interleaved.
using Samples = std::vector<std::int16_t>;

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

/// The sound card, opened for as long as the object lives. By hand it plays only what the test asks for.
class OpenedCard {
public:
    explicit OpenedCard(platform::SoundOutput output = platform::SoundOutput::ByHand) {
        platform::setSoundOutput(output);
        IDirectSound8* sound = nullptr;
        EXPECT_EQ(DirectSoundCreate8(nullptr, &sound, nullptr), DS_OK);
        sound_.reset(sound);
        EXPECT_EQ(sound->SetCooperativeLevel(reinterpret_cast<HWND>(std::uintptr_t{8}), DSSCL_PRIORITY), DS_OK);
    }
    ~OpenedCard() { platform::setSoundOutput(platform::SoundOutput::Card); }
    OpenedCard(const OpenedCard&) = delete;
    OpenedCard& operator=(const OpenedCard&) = delete;

    /// A buffer with all controls that holds `bytes`.
    [[nodiscard]] BufferRef bufferOf(const WAVEFORMATEX& format, std::span<const BYTE> bytes) const {
        BufferRef buffer = silence(format, static_cast<DWORD>(bytes.size()));
        EXPECT_EQ(store(*buffer, 0, bytes), DS_OK);
        return buffer;
    }
    /// The same with 16-bit samples of one channel.
    [[nodiscard]] BufferRef bufferOf(DWORD rate, std::span<const std::int16_t> samples) const {
        return bufferOf(waveFormat(1, 16, rate), grub::sampleBytes(samples));
    }
    /// The same, as it was created.
    [[nodiscard]] BufferRef silence(WAVEFORMATEX format, DWORD bytes) const {
        constexpr DWORD kAll = DSBCAPS_LOCSOFTWARE | DSBCAPS_CTRLPAN | DSBCAPS_CTRLVOLUME | DSBCAPS_CTRLPOSITIONNOTIFY |
                               DSBCAPS_GETCURRENTPOSITION2;
        const DSBUFFERDESC description{sizeof(DSBUFFERDESC), kAll, bytes, 0, &format, {}};
        IDirectSoundBuffer* buffer = nullptr;
        EXPECT_EQ(sound_->CreateSoundBuffer(&description, &buffer, nullptr), DS_OK);
        return BufferRef(buffer);
    }
    /// A buffer on the same memory.
    [[nodiscard]] BufferRef duplicate(IDirectSoundBuffer& buffer) const {
        IDirectSoundBuffer* copy = nullptr;
        EXPECT_EQ(sound_->DuplicateSoundBuffer(&buffer, &copy), DS_OK);
        return BufferRef(copy);
    }

    /// The next frames for the speakers, left and right in turn.
    static Samples play(std::size_t frames) {
        Samples stereo(2 * frames);
        platform::mixSound(stereo);
        return stereo;
    }

private:
    platform::ObjectRef<IDirectSound8> sound_;
};

/// Sets position events of a stopped buffer.
inline void setEvents(IDirectSoundBuffer& buffer, std::span<const DSBPOSITIONNOTIFY> at) {
    void* object = nullptr;
    ASSERT_EQ(buffer.QueryInterface(IID_IDirectSoundNotify, &object), DS_OK);
    const platform::ObjectRef<IDirectSoundNotify> notify(static_cast<IDirectSoundNotify*>(object));
    EXPECT_EQ(notify->SetNotificationPositions(static_cast<DWORD>(at.size()), at.data()), DS_OK);
}
