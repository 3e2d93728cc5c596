#include "dsound_buffer.h"

#include <algorithm>
#include <mutex>
#include <span>
#include <utility>
#include <vector>

#include "resource_source.h"
#include "sound_decoder.h"

namespace grub {

namespace {

constexpr DWORD kStaticCaps = DSBCAPS_GETCURRENTPOSITION2 | DSBCAPS_CTRLVOLUME | DSBCAPS_CTRLPAN | DSBCAPS_LOCSOFTWARE;
constexpr DWORD kStreamCaps = kStaticCaps | DSBCAPS_CTRLPOSITIONNOTIFY;

// Per cent of a range that begins at -100 dB, in hundredths of a decibel.
LONG decibels(std::int32_t percent, LONG range) { return std::clamp(percent, 0, 100) * range / 100 - 10000; }

// The format as the decoder tells it; the device checks it. A frame size of 0 means that there is nothing to play.
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

// How often one fill may start a loop again. Only sounds of a few milliseconds reach this limit. Each start reads the
// headers again; without the limit a sound of one sample would keep the thread busy for half a minute.
constexpr int kMostRestarts = 64;

// Copies what fits and moves both on behind it.
void copySome(std::span<const std::uint8_t>& from, std::span<std::uint8_t>& to) {
    const std::size_t count = std::min(from.size(), to.size());
    std::copy_n(from.begin(), count, to.begin());
    from = from.subspan(count);
    to = to.subspan(count);
}

}  // namespace

// The next PCM of a decoder, in the pieces that the decoder gives. Views of a file stay views, so each byte is copied
// once, into the device's memory. Must not outlive the decoder.
class PcmPieces {
public:
    // Takes whole frames, at most `bytes`, which must be a multiple of a frame. With `loop` a decoder that has ended is
    // rewound and goes on; it gives less than `bytes` only if it has next to nothing to give.
    PcmPieces(SoundDecoder& decoder, std::uint32_t bytes, std::uint32_t frameBytes, bool loop);

    [[nodiscard]] std::uint32_t size() const { return size_; }
    // Copies the pieces to the start of `first` and on into `second`, and fills the rest of both with zeros. Both
    // together must have room for all pieces.
    void copyTo(std::span<std::uint8_t> first, std::span<std::uint8_t> second) const;

private:
    struct Piece {
        SharedBuffer buffer;
        std::uint32_t size;  // its first bytes
    };

    std::vector<Piece> pieces_;
    std::uint32_t size_ = 0;
};

PcmPieces::PcmPieces(SoundDecoder& decoder, std::uint32_t bytes, std::uint32_t frameBytes, bool loop) {
    int restartsLeft = loop ? kMostRestarts : 0;
    bool rewound = false;
    while (size_ < bytes) {
        SharedBuffer buffer = SharedBuffer::create(bytes - size_);
        std::uint32_t count = decoder.read(buffer);
        count -= count % frameBytes;  // a file may end within a frame
        if (count > 0) {
            pieces_.push_back({std::move(buffer), count});
            size_ += count;
            rewound = false;
            continue;
        }
        if (rewound || restartsLeft-- == 0 || !decoder.rewind()) return;
        rewound = true;
    }
}

void PcmPieces::copyTo(std::span<std::uint8_t> first, std::span<std::uint8_t> second) const {
    for (const Piece& piece : pieces_) {
        auto from = piece.buffer.bytes().first(piece.size);
        copySome(from, first);
        copySome(from, second);
    }
    std::ranges::fill(first, std::uint8_t{0});
    std::ranges::fill(second, std::uint8_t{0});
}

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

// Writes the half even when the decoder gave nothing: the stop comes a little late, and the old half must not be heard
// again.
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
    return position - half * halfBytes_ < halfBytes_ / 2;  // unsigned: a cursor before the half gives a huge number
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

std::optional<std::size_t> StreamSlots::findFree() {
    for (std::size_t i = 0; i < kCount; ++i) {
        const std::lock_guard lock(slots_[i].lock);
        if (slots_[i].sound == nullptr) return i;
    }
    return std::nullopt;
}

void StreamSlots::take(std::size_t slot, DSoundBuffer& sound, bool loop) {
    Slot& taken = slots_[slot];
    const std::lock_guard lock(taken.lock);
    taken.sound = &sound;
    taken.dueHalf = 0;
    taken.looping = loop;
    taken.ending = false;
}

void StreamSlots::release(const DSoundBuffer& sound) {
    for (Slot& slot : slots_) {
        const std::lock_guard lock(slot.lock);
        if (slot.sound == &sound) slot.sound = nullptr;
    }
}

void StreamSlots::stopAll() {
    for (Slot& slot : slots_) {
        const std::lock_guard lock(slot.lock);
        if (slot.sound != nullptr) slot.sound->halt();
        slot.sound = nullptr;
    }
}

void StreamSlots::refill(std::size_t index) {
    Slot& slot = slots_[index];
    const std::lock_guard lock(slot.lock);
    if (slot.sound == nullptr || slot.sound->hasJustEntered(slot.dueHalf)) return;
    if (slot.ending) {
        slot.sound->halt();
        slot.sound = nullptr;
        return;
    }
    slot.ending = !slot.sound->fillHalf(slot.dueHalf, slot.looping);
    slot.dueHalf ^= 1;
}

}  // namespace grub
