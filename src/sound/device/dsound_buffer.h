#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include <dsound.h>

#include "block_pool.h"
#include "engine_services.h"
#include "system_objects.h"

namespace grub {

class PcmPieces;
class StreamSlots;

/// One sound of `DSoundDevice`: whole in a static buffer, or in a ring of two halves that is refilled while it plays.
class DSoundBuffer final : public SoundBuffer, public PoolAllocated<DSoundBuffer> {
public:
    /// The ring of a sound that streams, in bytes. A sound whose size is known and smaller is static.
    static constexpr std::uint32_t kRingBytes = 262144;

    /// An empty sound. It shares `directSound`; when that is null, the sound stays empty.
    DSoundBuffer(IDirectSound8* directSound, std::shared_ptr<StreamSlots> slots);
    DSoundBuffer(const DSoundBuffer&) = delete;
    DSoundBuffer& operator=(const DSoundBuffer&) = delete;
    /// Leaves its slots first, so that no streaming thread uses a destroyed sound.
    ~DSoundBuffer() override;

    /// The copy has the present volume and pan. Copies share the device's memory: of two that stream only one may play.
    [[nodiscard]] std::unique_ptr<SoundBuffer> clone() const override;
    bool create(std::unique_ptr<SoundDecoder> decoder) override;
    bool setPan(std::int32_t percent) override;
    bool setVolume(std::int32_t percent) override;

    /// Whether the device has made a buffer for it.
    [[nodiscard]] bool exists() const { return buffer_ != nullptr; }
    /// Whether the sound takes a slot while it plays.
    [[nodiscard]] bool streams() const { return halfBytes_ != 0; }
    /// Reads the device's DSBSTATUS_ flags; false when the device refuses.
    bool readStatus(DWORD& status) const;

    /// Rewinds the decoder, fills the whole buffer, with silence behind the sound's end, and moves the cursor to the
    /// start. False when the decoder cannot rewind or the device refuses.
    bool fillAll(bool loop);
    /// Fills a half (0 or 1) of the ring. When the decoder has nothing left, makes the half silent and returns false.
    /// When the device refuses, this part of the sound is lost.
    bool fillHalf(unsigned half, bool loop);
    /// Whether the cursor is in the first part of a half (0 or 1).
    [[nodiscard]] bool hasJustEntered(unsigned half) const;
    /// Asks the device to set the event when it has played the last byte of each half.
    bool notifyBy(HANDLE event);
    /// Starts or stops at the cursor. False when the device refuses.
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

/// The sounds that stream at the moment, 16 at most. The game thread takes and releases slots, the streaming threads
/// refill them. Each slot has its own lock, which a refill holds. A slot does not own its sound.
class StreamSlots {
public:
    static constexpr std::size_t kCount = 16;

    /// The lowest slot without a sound; it stays free until `take`.
    [[nodiscard]] std::optional<std::size_t> findFree();
    /// Puts a sound into a free slot. Its ring must be full, and it must start at the beginning of the ring next.
    void take(std::size_t slot, DSoundBuffer& sound, bool loop);
    /// Empties every slot that holds the sound. Afterwards no streaming thread uses the sound.
    void release(const DSoundBuffer& sound);
    /// Stops every sound that streams and empties all slots.
    void stopAll();

    /// Handles the event of a slot, on a streaming thread: refills the half that has been played, or stops the sound
    /// when it has been heard to its end.
    void refill(std::size_t slot);

private:
    struct Slot {
        CriticalSection lock;  // over all below
        DSoundBuffer* sound = nullptr;
        unsigned dueHalf = 0;  // the half that ends next
        bool looping = false;
        bool ending = false;  // the decoder has ended; the half that plays is the last one
    };

    std::array<Slot, kCount> slots_;
};

}  // namespace grub
