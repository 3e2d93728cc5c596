#include "dsound/secondary_buffer.h"

#include <algorithm>
#include <new>

#include "kernel/calls.h"

namespace platform {
namespace {

constexpr LONG kSilence = -10'000;
constexpr LONG kOneSideOnly = 10'000;
// A playing buffer is read up to this far in front of its cursor: a block and the filter's taps.
constexpr DWORD kSafeParts = 50;  // of a second

}  // namespace

SecondaryBuffer::SecondaryBuffer(std::shared_ptr<SoundCard> card, const std::shared_ptr<SampleMemory>& memory,
                                 DWORD capabilities)
    : card_(std::move(card)),
      capabilities_(capabilities),
      voice_(memory, card_->mixer().filterFrom(memory->format().rate)) {
    card_->mixer().add(voice_);
}

SecondaryBuffer::~SecondaryBuffer() { card_->mixer().remove(voice_); }

SecondaryBuffer* SecondaryBuffer::duplicate() {
    auto* const copy = new (std::nothrow) SecondaryBuffer(card_, voice_.sharedMemory(), capabilities_);
    if (copy == nullptr) return nullptr;
    const auto held = guard();
    copy->voice_.setVolume(voice_.volume());
    copy->voice_.setPan(voice_.pan());
    return copy;
}

HRESULT SecondaryBuffer::QueryInterface(const GUID& id, void** object) {
    if (const HRESULT fault = refusal(Call::QueryInterface); FAILED(fault)) return fault;
    if (object == nullptr) return DSERR_INVALIDPARAM;
    *object = nullptr;
    const bool offered = id == IID_IDirectSoundNotify && (capabilities_ & DSBCAPS_CTRLPOSITIONNOTIFY) != 0;
    if (!offered) return DSERR_NOINTERFACE;
    AddRef();
    *object = static_cast<IDirectSoundNotify*>(&notify_);
    return DS_OK;
}

HRESULT SecondaryBuffer::GetStatus(DWORD* status) {
    if (const HRESULT fault = refusal(Call::GetStatus); FAILED(fault)) return fault;
    if (status == nullptr) return DSERR_INVALIDPARAM;
    const auto held = guard();
    *status = voice_.playing() ? DSBSTATUS_PLAYING : 0;
    if (voice_.playing() && voice_.looping()) *status |= DSBSTATUS_LOOPING;
    if (voice_.memory().lost()) *status |= DSBSTATUS_BUFFERLOST;
    return DS_OK;
}

HRESULT SecondaryBuffer::GetCurrentPosition(DWORD* play, DWORD* write) {
    if (const HRESULT fault = refusal(Call::GetCurrentPosition); FAILED(fault)) return fault;
    const auto held = guard();
    const SampleMemory& memory = voice_.memory();
    const std::size_t ahead = voice_.playing() ? memory.format().rate / kSafeParts : 0;
    const auto bytesOf = [&](std::size_t frame) {
        return static_cast<DWORD>(frame % memory.frames() * memory.format().frameBytes());
    };
    if (play != nullptr) *play = bytesOf(voice_.cursor());
    if (write != nullptr) *write = bytesOf(voice_.cursor() + ahead);
    return DS_OK;
}

HRESULT SecondaryBuffer::Lock(DWORD offset, DWORD count, void** first, DWORD* firstBytes, void** second,
                              DWORD* secondBytes, DWORD flags) {
    if (const HRESULT fault = refusal(Call::Lock); FAILED(fault)) return fault;
    const std::size_t all = bytes();
    const std::size_t wanted = (flags & DSBLOCK_ENTIREBUFFER) != 0 ? all : count;
    if (first == nullptr || firstBytes == nullptr || wanted == 0 || wanted > all || offset >= all) {
        return DSERR_INVALIDPARAM;
    }
    std::vector<BYTE> staging(wanted);
    const std::size_t beforeEnd = std::min(wanted, all - offset);
    const auto held = guard();
    if (voice_.memory().lost()) return DSERR_BUFFERLOST;
    if (!locked_.staging.empty()) return DSERR_INVALIDCALL;
    const auto memory = voice_.memory().bytes();
    std::ranges::copy(memory.subspan(offset, beforeEnd), staging.begin());
    std::ranges::copy(memory.first(wanted - beforeEnd), staging.begin() + static_cast<std::ptrdiff_t>(beforeEnd));
    locked_ = {offset, beforeEnd, std::move(staging)};
    *first = locked_.staging.data();
    *firstBytes = static_cast<DWORD>(beforeEnd);
    if (second != nullptr) *second = wanted > beforeEnd ? locked_.staging.data() + beforeEnd : nullptr;
    if (secondBytes != nullptr) *secondBytes = static_cast<DWORD>(wanted - beforeEnd);
    return DS_OK;
}

HRESULT SecondaryBuffer::Unlock(void* first, DWORD firstBytes, void* /*second*/, DWORD secondBytes) {
    if (const HRESULT fault = refusal(Call::Unlock); FAILED(fault)) return fault;
    LockedRange range;  // freed after the lock
    const auto held = guard();
    if (locked_.staging.empty()) return DSERR_INVALIDCALL;
    const std::size_t behindEnd = locked_.staging.size() - locked_.beforeEnd;
    if (first != locked_.staging.data() || firstBytes > locked_.beforeEnd || secondBytes > behindEnd) {
        return DSERR_INVALIDPARAM;
    }
    std::swap(range, locked_);
    if (voice_.memory().lost()) return DS_OK;  // the memory is gone, and the written bytes with it
    const std::span<const BYTE> staging(range.staging);
    const auto memory = voice_.memory().bytes();
    std::ranges::copy(staging.first(firstBytes), memory.begin() + static_cast<std::ptrdiff_t>(range.offset));
    std::ranges::copy(staging.subspan(range.beforeEnd, secondBytes), memory.begin());
    return DS_OK;
}

HRESULT SecondaryBuffer::Play(DWORD reserved, DWORD /*priority*/, DWORD flags) {
    if (const HRESULT fault = refusal(Call::Play); FAILED(fault)) return fault;
    if (reserved != 0) return DSERR_INVALIDPARAM;
    const auto held = guard();
    if (voice_.memory().lost()) return DSERR_BUFFERLOST;
    voice_.play((flags & DSBPLAY_LOOPING) != 0);
    return DS_OK;
}

HRESULT SecondaryBuffer::Stop() {
    if (const HRESULT fault = refusal(Call::Stop); FAILED(fault)) return fault;
    const auto held = guard();
    voice_.stop();
    return DS_OK;
}

HRESULT SecondaryBuffer::SetCurrentPosition(DWORD position) {
    if (const HRESULT fault = refusal(Call::SetCurrentPosition); FAILED(fault)) return fault;
    const auto held = guard();
    const std::size_t frame = position / voice_.memory().format().frameBytes();
    if (frame >= voice_.memory().frames()) return DSERR_INVALIDPARAM;
    voice_.setCursor(frame);
    return DS_OK;
}

HRESULT SecondaryBuffer::SetVolume(LONG volume) {
    if (const HRESULT fault = refusal(Call::SetVolume); FAILED(fault)) return fault;
    if ((capabilities_ & DSBCAPS_CTRLVOLUME) == 0) return DSERR_CONTROLUNAVAIL;
    if (volume < kSilence || volume > 0) return DSERR_INVALIDPARAM;
    const auto held = guard();
    voice_.setVolume(volume);
    return DS_OK;
}

HRESULT SecondaryBuffer::SetPan(LONG pan) {
    if (const HRESULT fault = refusal(Call::SetPan); FAILED(fault)) return fault;
    if ((capabilities_ & DSBCAPS_CTRLPAN) == 0) return DSERR_CONTROLUNAVAIL;
    if (pan < -kOneSideOnly || pan > kOneSideOnly) return DSERR_INVALIDPARAM;
    const auto held = guard();
    voice_.setPan(pan);
    return DS_OK;
}

HRESULT SecondaryBuffer::Restore() {
    if (const HRESULT fault = refusal(Call::Restore); FAILED(fault)) return fault;
    const auto held = guard();
    voice_.memory().restore();
    return DS_OK;
}

std::vector<BYTE> SecondaryBuffer::held() {
    const auto held = guard();
    const auto memory = voice_.memory().bytes();
    return {memory.begin(), memory.end()};
}

HRESULT SecondaryBuffer::setPositions(DWORD count, const DSBPOSITIONNOTIFY* positions) {
    if (const HRESULT fault = refusal(Call::SetNotificationPositions); FAILED(fault)) return fault;
    if (count > 0 && positions == nullptr) return DSERR_INVALIDPARAM;
    std::vector<FrameEvent> events;
    for (const DSBPOSITIONNOTIFY& at : std::span(positions, count)) {
        const std::size_t frame = at.dwOffset / voice_.memory().format().frameBytes();
        if (frame >= voice_.memory().frames()) return DSERR_INVALIDPARAM;
        events.push_back({frame, at.hEventNotify});
    }
    const auto held = guard();
    if (voice_.playing()) return DSERR_INVALIDCALL;
    voice_.setEvents(std::move(events));
    return DS_OK;
}

}  // namespace platform
