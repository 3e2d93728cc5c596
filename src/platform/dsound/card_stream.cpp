#include "dsound/card_stream.h"

#include <span>

#include "dsound/sound_card.h"
#include "dsound/sound_mixer.h"

namespace platform {
namespace {

constexpr int kUsualRate = 44'100;
// 11.6 ms: two of them pass unnoticed between a picture and its sound.
constexpr Uint16 kPeriodFrames = 512;

}  // namespace

std::unique_ptr<CardStream> CardStream::open() {
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return nullptr;
    std::unique_ptr<CardStream> stream(new CardStream);
    SDL_AudioSpec wanted{};
    wanted.freq = kUsualRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = kPeriodFrames;
    wanted.callback = fill;
    wanted.userdata = stream.get();
    SDL_AudioSpec given{};
    // The rate is the device's own: the mixer resamples better than SDL would.
    stream->device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &given, SDL_AUDIO_ALLOW_FREQUENCY_CHANGE);
    stream->rate_ = static_cast<DWORD>(given.freq);
    return stream->device_ == 0 ? nullptr : std::move(stream);
}

CardStream::~CardStream() {
    if (device_ != 0) SDL_CloseAudioDevice(device_);  // no callback runs from here on
    if (notifier_.joinable()) {
        ending_ = true;
        SDL_SemPost(raised_);
        notifier_.join();
    }
    if (raised_ != nullptr) SDL_DestroySemaphore(raised_);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void CardStream::start(SoundMixer& mixer) {
    mixer_ = &mixer;
    raised_ = SDL_CreateSemaphore(0);
    notifier_ = std::thread([this] { setEvents(); });
    SDL_PauseAudioDevice(device_, 0);
}

void CardStream::fill(void* stream, std::uint8_t* bytes, int count) {
    auto& self = *static_cast<CardStream*>(stream);
    const auto samples = static_cast<std::size_t>(count) / sizeof(float);
    if (self.mixer_->mix({reinterpret_cast<float*>(bytes), samples})) SDL_SemPost(self.raised_);
}

void CardStream::setEvents() {
    for (;;) {
        SDL_SemWait(raised_);
        if (ending_) return;
        const RaisedEvents raised = mixer_->takeRaised();
        for (const HANDLE event : raised.all()) setPositionEvent(event);
    }
}

}  // namespace platform
