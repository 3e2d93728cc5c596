#include "dsound/sound_card.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>

#include "dsound/card_stream.h"
#include "kernel/calls.h"
#include "kernel/events.h"
#include "kernel/waits.h"

namespace platform {
namespace {

struct CardPlace {
    std::mutex lock;
    std::weak_ptr<SoundCard> card;
    SoundOutput output = SoundOutput::Card;
};

/// Never destroyed: sound may be released by threads that outlive main.
CardPlace& place() {
    static auto* one = new CardPlace;
    return *one;
}

std::shared_ptr<SoundCard> makeCard(SoundOutput output) {
    switch (output) {
        case SoundOutput::None: return nullptr;
        case SoundOutput::ByHand: return std::make_shared<SoundCard>(DWORD{kHandMixedRate}, nullptr);
        case SoundOutput::Card: break;
    }
    auto stream = CardStream::open();
    if (!stream) return nullptr;
    const DWORD rate = stream->rate();
    return std::make_shared<SoundCard>(rate, std::move(stream));
}

std::int16_t asStored(float sample) {
    constexpr float kFull = 0x8000;
    return static_cast<std::int16_t>(std::clamp(std::lround(sample * kFull), -0x8000L, 0x7FFFL));
}

/// Sets the events one after the other and waits for an answer to each, so that a thread sees every event.
void setAnswered(const RaisedEvents& raised) {
    for (const HANDLE event : raised.all()) {
        const auto object = objectOf<Waitable>(event);
        if (!object) continue;
        setPositionEvent(event);
        WaitGuard lock(waitLock());
        while (!object->isAnswered() && !othersWait()) napUntilOneSettles(lock);
    }
}

}  // namespace

SoundCard::SoundCard(DWORD rate, std::unique_ptr<CardStream> stream) : mixer_(rate), stream_(std::move(stream)) {
    if (stream_) stream_->start(mixer_);
}

SoundCard::~SoundCard() = default;

std::shared_ptr<SoundCard> openSoundCard() {
    const std::lock_guard guard(place().lock);
    auto card = place().card.lock();
    if (card) return card;
    card = makeCard(place().output);
    place().card = card;
    return card;
}

std::shared_ptr<SoundCard> presentSoundCard() {
    const std::lock_guard guard(place().lock);
    return place().card.lock();
}

void setPositionEvent(HANDLE event) {
    if (!isRefused(Call::PositionEvent)) SetEvent(event);
}

void setSoundOutput(SoundOutput output) {
    const std::lock_guard guard(place().lock);
    place().output = output;
}

void mixSound(std::span<std::int16_t> stereo44100) {
    constexpr std::size_t kBlock = std::size_t{256} * kHandMixedChannels;
    const auto card = presentSoundCard();
    std::ranges::fill(stereo44100, std::int16_t{0});
    if (!card || !card->byHand()) return;
    std::array<float, kBlock> mixed{};
    while (stereo44100.size() >= kHandMixedChannels) {
        const auto block = std::span(mixed).first(std::min(kBlock, stereo44100.size() / 2 * 2));
        if (card->mixer().mix(block)) setAnswered(card->mixer().takeRaised());
        std::ranges::transform(block, stereo44100.begin(), asStored);
        stereo44100 = stereo44100.subspan(block.size());
    }
}

}  // namespace platform
