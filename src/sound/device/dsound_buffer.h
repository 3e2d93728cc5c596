#pragma once

#include <cstdint>
#include <memory>

#include <dsound.h>

#include "block_pool.h"
#include "com_ptr.h"
#include "sound_buffer.h"

namespace grub {

class PcmPieces;
class StreamSlots;

/// One sound of `DSoundDevice`: wholly in a static buffer, or in a ring of two halves that is refilled while it plays.
class DSoundBuffer final : public SoundBuffer, public PoolAllocated<DSoundBuffer> {
public:
    /// The ring of a sound that streams, in bytes. What is smaller, and known to be, is static.
    static constexpr std::uint32_t kRingBytes = 262144;

    /// Empty. Without `directSound`, which is kept alive, it stays so.
    DSoundBuffer(IDirectSound8* directSound, std::shared_ptr<StreamSlots> slots);
    DSoundBuffer(const DSoundBuffer&) = delete;
    DSoundBuffer& operator=(const DSoundBuffer&) = delete;
    /// Leaves its slots first, so no streaming thread meets a sound that is gone.
    ~DSoundBuffer() override;

    /// The copy has the volume and the pan of now. Copies share the device's memory: one of two that stream may play.
    [[nodiscard]] std::unique_ptr<SoundBuffer> clone() const override;
    bool create(std::unique_ptr<SoundDecoder> decoder) override;
    bool setPan(std::int32_t percent) override;
    bool setVolume(std::int32_t percent) override;

    /// Whether there is something to play.
    [[nodiscard]] bool exists() const { return buffer_ != nullptr; }
    /// Whether it takes a slot while it plays.
    [[nodiscard]] bool streams() const { return halfBytes_ != 0; }
    /// The device's DSBSTATUS_ flags; false when it refuses.
    bool readStatus(DWORD& status) const;

    /// Rewinds the decoder and fills the whole buffer; what the sound does not fill is silent. The next start is at the
    /// beginning. False when the decoder has nothing or the device refuses.
    bool fillAll(bool loop);
    /// Fills a half (0 or 1) of the ring. False when nothing is left, which makes the half silent. What the device
    /// refuses is lost, like a gap in the sound.
    bool fillHalf(unsigned half, bool loop);
    /// Whether the cursor stands in the first part of a half (0 or 1).
    [[nodiscard]] bool hasJustEntered(unsigned half) const;
    /// Lets the device set the event when the last byte of each half has been played.
    bool notifyBy(HANDLE event);
    /// Starts at the cursor, or halts. False when the device refuses.
    bool start(bool loop);
    bool halt();

private:
    void leaveSlots();
    bool createBuffer(WAVEFORMATEX& format);
    bool write(const PcmPieces& pcm, DWORD offset, DWORD bytes, DWORD flags);
    struct Locked;
    bool lock(Locked& memory, DWORD offset, DWORD bytes, DWORD flags);

    ComPtr<IDirectSound8> directSound_;
    ComPtr<IDirectSoundBuffer> buffer_;
    std::unique_ptr<SoundDecoder> decoder_;
    std::shared_ptr<StreamSlots> slots_;
    std::uint32_t frameBytes_ = 0;
    std::uint32_t bufferBytes_ = 0;  // whole frames
    std::uint32_t halfBytes_ = 0;    // 0: static
};

}  // namespace grub
