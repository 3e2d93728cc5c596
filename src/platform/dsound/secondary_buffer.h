#pragma once

#include <memory>
#include <vector>

#include <dsound.h>

#include "dsound/sound_card.h"
#include "kernel/objects.h"

namespace platform {

/// A buffer as the game sees it: checks its calls and passes them on to a voice under the mixer's lock.
class SecondaryBuffer final : public ComObject<IDirectSoundBuffer> {
public:
    /// `capabilities` are DSBCAPS_ flags.
    SecondaryBuffer(std::shared_ptr<SoundCard> card, const std::shared_ptr<SampleMemory>& memory, DWORD capabilities);
    /// A stopped duplicate at the start of the same memory, with the settings of this buffer and one reference, the
    /// caller's. Null when memory is short.
    [[nodiscard]] SecondaryBuffer* duplicate();
    ~SecondaryBuffer() override;

    HRESULT QueryInterface(const GUID& id, void** object) override;
    HRESULT GetStatus(DWORD* status) override;
    HRESULT GetCurrentPosition(DWORD* play, DWORD* write) override;
    HRESULT Lock(DWORD offset, DWORD bytes, void** first, DWORD* firstBytes, void** second, DWORD* secondBytes,
                 DWORD flags) override;
    HRESULT Unlock(void* first, DWORD firstBytes, void* second, DWORD secondBytes) override;
    HRESULT Play(DWORD reserved, DWORD priority, DWORD flags) override;
    HRESULT Stop() override;
    HRESULT SetCurrentPosition(DWORD position) override;
    HRESULT SetVolume(LONG volume) override;
    HRESULT SetPan(LONG pan) override;
    HRESULT Restore() override;

    /// A copy of the samples.
    [[nodiscard]] std::vector<BYTE> held();

private:
    /// The interface of the position events, under the buffer's own references.
    class Notify final : public IDirectSoundNotify {
    public:
        explicit Notify(SecondaryBuffer& buffer) : buffer_(buffer) {}
        virtual ~Notify() = default;
        ULONG AddRef() override { return buffer_.AddRef(); }
        ULONG Release() override { return buffer_.Release(); }
        HRESULT SetNotificationPositions(DWORD count, const DSBPOSITIONNOTIFY* positions) override {
            return buffer_.setPositions(count, positions);
        }

    private:
        SecondaryBuffer& buffer_;
    };

    /// A range that the caller writes to, in a block of its own. Empty when nothing is locked.
    struct LockedRange {
        std::size_t offset = 0;
        std::size_t beforeEnd = 0;  // bytes of the first piece
        std::vector<BYTE> staging;
    };

    HRESULT setPositions(DWORD count, const DSBPOSITIONNOTIFY* positions);
    [[nodiscard]] std::unique_lock<MixerLock> guard() { return std::unique_lock(card_->mixer().lock()); }
    [[nodiscard]] std::size_t bytes() const { return voice_.memory().bytes().size(); }

    std::shared_ptr<SoundCard> card_;
    DWORD capabilities_;
    SoundVoice voice_;
    LockedRange locked_;  // under the mixer's lock, but for the caller's writing
    Notify notify_{*this};
};

}  // namespace platform
