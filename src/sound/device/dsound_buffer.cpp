#include "dsound_buffer.h"

#include <algorithm>
#include <span>

#include "pcm_pieces.h"
#include "sound_decoder.h"
#include "stream_slots.h"

namespace grub {

namespace {

constexpr DWORD kStaticCaps = DSBCAPS_GETCURRENTPOSITION2 | DSBCAPS_CTRLVOLUME | DSBCAPS_CTRLPAN | DSBCAPS_LOCSOFTWARE;
constexpr DWORD kStreamCaps = kStaticCaps | DSBCAPS_CTRLPOSITIONNOTIFY;

// Per cent of a range that begins at -100 dB, in hundredths of a decibel.
LONG decibels(std::int32_t percent, LONG range) { return std::clamp(percent, 0, 100) * range / 100 - 10000; }

// What the decoder says of itself; the device judges it. No frame size is a sound of nothing.
WAVEFORMATEX formatOf(const SoundDecoder& decoder) {
    const std::uint32_t frameBytes = std::uint32_t{decoder.channels()} * decoder.bitsPerSample() / 8;
    WAVEFORMATEX format{};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = decoder.channels();
    format.nSamplesPerSec = decoder.sampleRate();
    format.wBitsPerSample = decoder.bitsPerSample();
    format.nBlockAlign = static_cast<WORD>(std::min<std::uint32_t>(frameBytes, 0xFFFF));
    format.nAvgBytesPerSec = format.nSamplesPerSec * format.nBlockAlign;
    return format;
}

}  // namespace

DSoundBuffer::DSoundBuffer(IDirectSound8* directSound, std::shared_ptr<StreamSlots> slots)
    : directSound_(directSound != nullptr ? addReference(*directSound) : nullptr), slots_(std::move(slots)) {}

DSoundBuffer::~DSoundBuffer() { leaveSlots(); }

void DSoundBuffer::leaveSlots() {
    if (streams()) slots_->release(*this);
}

std::unique_ptr<SoundBuffer> DSoundBuffer::clone() const {
    auto copy = std::make_unique<DSoundBuffer>(directSound_.get(), slots_);
    if (decoder_) copy->decoder_ = decoder_->clone();
    copy->frameBytes_ = frameBytes_;
    copy->bufferBytes_ = bufferBytes_;
    copy->halfBytes_ = halfBytes_;
    IDirectSoundBuffer* duplicate = nullptr;
    if (buffer_ && SUCCEEDED(directSound_->DuplicateSoundBuffer(buffer_.get(), &duplicate))) {
        copy->buffer_.reset(duplicate);
    }
    return copy;
}

bool DSoundBuffer::create(std::unique_ptr<SoundDecoder> decoder) {
    leaveSlots();
    buffer_.reset();
    decoder_ = std::move(decoder);
    if (!directSound_ || !decoder_) return false;
    WAVEFORMATEX format = formatOf(*decoder_);
    frameBytes_ = format.nBlockAlign;
    if (frameBytes_ == 0) return false;
    const std::uint32_t size = decoder_->dataSize();
    const bool isStatic = size != 0 && size < kRingBytes;
    bufferBytes_ = isStatic ? size - size % frameBytes_ : kRingBytes;
    halfBytes_ = isStatic ? 0 : kRingBytes / 2;
    return createBuffer(format);
}

bool DSoundBuffer::createBuffer(WAVEFORMATEX& format) {
    DSBUFFERDESC description{};
    description.dwSize = sizeof description;
    description.dwFlags = streams() ? kStreamCaps : kStaticCaps;
    description.dwBufferBytes = bufferBytes_;
    description.lpwfxFormat = &format;
    IDirectSoundBuffer* buffer = nullptr;
    if (FAILED(directSound_->CreateSoundBuffer(&description, &buffer, nullptr))) return false;
    buffer_.reset(buffer);
    return true;
}

bool DSoundBuffer::setPan(std::int32_t percent) {
    return buffer_ && SUCCEEDED(buffer_->SetPan(decibels(percent, 20000)));
}

bool DSoundBuffer::setVolume(std::int32_t percent) {
    return buffer_ && SUCCEEDED(buffer_->SetVolume(decibels(percent, 10000)));
}

bool DSoundBuffer::readStatus(DWORD& status) const { return buffer_ && SUCCEEDED(buffer_->GetStatus(&status)); }

bool DSoundBuffer::fillAll(bool loop) {
    if (!decoder_->rewind()) return false;
    const PcmPieces pcm(*decoder_, bufferBytes_, frameBytes_, loop && streams());
    return write(pcm, 0, bufferBytes_, DSBLOCK_ENTIREBUFFER) && SUCCEEDED(buffer_->SetCurrentPosition(0));
}

// The half is written even when nothing came: its stop comes a little late, and what it held must not be heard again.
bool DSoundBuffer::fillHalf(unsigned half, bool loop) {
    const PcmPieces pcm(*decoder_, halfBytes_, frameBytes_, loop);
    write(pcm, half * halfBytes_, halfBytes_, 0);
    return pcm.size() > 0;
}

struct DSoundBuffer::Locked {
    void* first = nullptr;
    DWORD firstBytes = 0;
    void* second = nullptr;
    DWORD secondBytes = 0;
};

bool DSoundBuffer::lock(Locked& memory, DWORD offset, DWORD bytes, DWORD flags) {
    const auto tryLock = [&] {
        return buffer_->Lock(offset, bytes, &memory.first, &memory.firstBytes, &memory.second, &memory.secondBytes,
                             flags);
    };
    const HRESULT result = tryLock();
    if (result != DSERR_BUFFERLOST) return SUCCEEDED(result);
    directSound_->Compact();
    return SUCCEEDED(buffer_->Restore()) && SUCCEEDED(tryLock());
}

bool DSoundBuffer::write(const PcmPieces& pcm, DWORD offset, DWORD bytes, DWORD flags) {
    Locked memory;
    if (!lock(memory, offset, bytes, flags)) return false;
    pcm.copyTo({static_cast<std::uint8_t*>(memory.first), memory.firstBytes},
               {static_cast<std::uint8_t*>(memory.second), memory.secondBytes});
    return SUCCEEDED(buffer_->Unlock(memory.first, memory.firstBytes, memory.second, memory.secondBytes));
}

bool DSoundBuffer::hasJustEntered(unsigned half) const {
    DWORD position = 0;
    if (FAILED(buffer_->GetCurrentPosition(&position, nullptr))) return false;
    return position - half * halfBytes_ < halfBytes_ / 2;  // unsigned: a cursor before the half is far behind it
}

bool DSoundBuffer::notifyBy(HANDLE event) {
    void* object = nullptr;
    if (FAILED(buffer_->QueryInterface(IID_IDirectSoundNotify, &object))) return false;
    const ComPtr<IDirectSoundNotify> notify(static_cast<IDirectSoundNotify*>(object));
    const DSBPOSITIONNOTIFY positions[] = {{halfBytes_ - 1, event}, {bufferBytes_ - 1, event}};
    return SUCCEEDED(notify->SetNotificationPositions(2, positions));
}

bool DSoundBuffer::start(bool loop) { return SUCCEEDED(buffer_->Play(0, 0, loop ? DSBPLAY_LOOPING : 0)); }

bool DSoundBuffer::halt() { return SUCCEEDED(buffer_->Stop()); }

}  // namespace grub
