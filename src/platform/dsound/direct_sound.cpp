#include <atomic>
#include <new>

#include <dsound.h>

#include "dsound/secondary_buffer.h"
#include "kernel/calls.h"
#include "kernel/objects.h"

namespace platform {
namespace {

// The sizes that a buffer may have, in bytes.
constexpr DWORD kSmallestBuffer = 4;
constexpr DWORD kLargestBuffer = 0x0FFF'FFFF;

bool isSound(const DSBUFFERDESC* description) {
    return description != nullptr && description->dwSize == sizeof(DSBUFFERDESC) &&
           description->lpwfxFormat != nullptr && description->dwBufferBytes >= kSmallestBuffer &&
           description->dwBufferBytes <= kLargestBuffer;
}

// Keeps the card open; so does every buffer.
class SoftwareDirectSound final : public ComObject<IDirectSound8> {
public:
    explicit SoftwareDirectSound(std::shared_ptr<SoundCard> card) : card_(std::move(card)) {}

    HRESULT CreateSoundBuffer(const DSBUFFERDESC* description, IDirectSoundBuffer** buffer, IUnknown* outer) override {
        if (const HRESULT fault = refusal(Call::CreateSoundBuffer); FAILED(fault)) return fault;
        if (outer != nullptr) return DSERR_NOAGGREGATION;
        if (buffer == nullptr || !isSound(description)) return DSERR_INVALIDPARAM;
        if (!levelSet_) return DSERR_PRIOLEVELNEEDED;
        const auto format = readFormat(*description->lpwfxFormat);
        if (!format) return DSERR_BADFORMAT;
        const auto memory = std::make_shared<SampleMemory>(*format, description->dwBufferBytes);
        *buffer = new (std::nothrow) SecondaryBuffer(card_, memory, description->dwFlags);
        return *buffer == nullptr ? DSERR_OUTOFMEMORY : DS_OK;
    }

    HRESULT DuplicateSoundBuffer(IDirectSoundBuffer* original, IDirectSoundBuffer** duplicate) override {
        if (const HRESULT fault = refusal(Call::DuplicateSoundBuffer); FAILED(fault)) return fault;
        if (original == nullptr || duplicate == nullptr) return DSERR_INVALIDPARAM;
        *duplicate = static_cast<SecondaryBuffer*>(original)->duplicate();  // there is no other kind
        return *duplicate == nullptr ? DSERR_OUTOFMEMORY : DS_OK;
    }

    HRESULT SetCooperativeLevel(HWND window, DWORD level) override {
        if (const HRESULT fault = refusal(Call::SetCooperativeLevel); FAILED(fault)) return fault;
        if (window == nullptr || level != DSSCL_PRIORITY) return DSERR_INVALIDPARAM;
        levelSet_ = true;
        return DS_OK;
    }

    HRESULT Compact() override { return refusal(Call::Compact); }

private:
    std::shared_ptr<SoundCard> card_;
    std::atomic<bool> levelSet_{false};
};

}  // namespace
}  // namespace platform

HRESULT DirectSoundCreate8(const GUID* device, IDirectSound8** sound, IUnknown* outer) {
    if (const HRESULT fault = platform::refusal(platform::Call::DirectSoundCreate8); FAILED(fault)) return fault;
    if (outer != nullptr) return DSERR_NOAGGREGATION;
    if (sound == nullptr || device != nullptr) return DSERR_INVALIDPARAM;
    *sound = nullptr;
    auto card = platform::openSoundCard();
    if (!card) return DSERR_NODRIVER;
    *sound = new (std::nothrow) platform::SoftwareDirectSound(std::move(card));
    return *sound == nullptr ? DSERR_OUTOFMEMORY : DS_OK;
}
