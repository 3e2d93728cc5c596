#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <random>

#include "control/call_controls.h"
#include "desktop/video.h"
#include "game_thread.h"
#include "hand_mixed_card.h"

// Sound under many hands: meant for the thread sanitizer, and for clocks that do not wait.
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// A stream that two threads refill on its events, as a game does, and that the test starts and stops.
class RefilledStream {
public:
    explicit RefilledStream(BufferRef buffer) : buffer_(std::move(buffer)) {
        const DSBPOSITIONNOTIFY at[]{{kBytes / 2 - 1, passed_}, {kBytes - 1, passed_}};
        EXPECT_EQ(setEvents(*buffer_, at), DS_OK);
    }
    ~RefilledStream() {
        SetEvent(end_);
        first_.join();
        second_.join();
        CloseHandle(passed_);
        CloseHandle(end_);
    }
    RefilledStream(const RefilledStream&) = delete;
    RefilledStream& operator=(const RefilledStream&) = delete;

    static constexpr DWORD kBytes = 16'384;

    IDirectSoundBuffer& buffer() const { return *buffer_; }
    int refills() const { return refills_; }

private:
    void refill() {
        const std::vector<BYTE> half(kBytes / 2, 1);
        const HANDLE both[]{passed_, end_};
        while (WaitForMultipleObjects(2, both, FALSE, INFINITE) == WAIT_OBJECT_0) {
            const bool second = toggle_.fetch_xor(1) != 0;
            if (SUCCEEDED(store(*buffer_, second ? kBytes / 2 : 0, half))) ++refills_;
        }
    }

    BufferRef buffer_;
    HANDLE passed_ = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    HANDLE end_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    std::atomic<int> toggle_{0};
    std::atomic<int> refills_{0};
    GameThread first_{[this] { refill(); }};
    GameThread second_{[this] { refill(); }};
};

/// Does something that a game may do with a sound at any time.
void disturb(IDirectSoundBuffer& buffer, std::minstd_rand& random) {
    switch (random() % 6) {
        case 0: buffer.Play(0, 0, random() % 2 == 0 ? DSBPLAY_LOOPING : 0); break;
        case 1: buffer.Stop(); break;
        case 2: buffer.SetCurrentPosition(static_cast<DWORD>(random() % RefilledStream::kBytes)); break;
        case 3: buffer.SetVolume(-static_cast<LONG>(random() % 10'001)); break;
        case 4: buffer.SetPan(static_cast<LONG>(random() % 20'001) - 10'000); break;
        default: store(buffer, static_cast<DWORD>(random() % 8192), std::vector<BYTE>(8192, 2)); break;
    }
}

void playAtRandom(const HandMixedCard& card, const std::atomic<bool>& end, unsigned seed) {
    std::minstd_rand random(seed);
    const auto original = card.silence(waveFormat(2, 16, 22'050), RefilledStream::kBytes);
    std::array<BufferRef, 4> copies;
    while (!end) {
        BufferRef& copy = copies[random() % copies.size()];
        if (!copy || random() % 20 == 0) copy = card.duplicate(*original);
        disturb(*copy, random);
    }
}

TEST(SoundThreads, StartAndStopWhileTheMixGoesOn) {
    platform::testing::SoundControls controls;
    const HandMixedCard card;
    RefilledStream stream(card.silence(waveFormat(1, 16, 44'100), RefilledStream::kBytes));
    stream.buffer().Play(0, 0, DSBPLAY_LOOPING);
    std::atomic<bool> end{false};
    const GameThread player([&] { playAtRandom(card, end, 1); });
    const GameThread other([&] { playAtRandom(card, end, 2); });
    const auto until = steady_clock::now() + milliseconds(400);
    std::size_t mixed = 0;
    while (steady_clock::now() < until) mixed += HandMixedCard::play(441).size() / 2;
    end = true;
    player.join();
    other.join();
    const auto events = mixed / (RefilledStream::kBytes / 4);  // one for each half that was played
    EXPECT_GT(events, 0U);
    EXPECT_EQ(controls.notifications(), events);
    EXPECT_EQ(stream.refills(), static_cast<int>(events));
}

/// The system's device, here the dummy one.
BufferRef streamOnCard(platform::ObjectRef<IDirectSound8>& sound) {
    platform::useDummyDrivers();
    IDirectSound8* created = nullptr;
    EXPECT_EQ(DirectSoundCreate8(nullptr, &created, nullptr), DS_OK);
    sound.reset(created);
    EXPECT_EQ(sound->SetCooperativeLevel(reinterpret_cast<HWND>(std::uintptr_t{8}), DSSCL_PRIORITY), DS_OK);
    WAVEFORMATEX format = waveFormat(1, 16, 44'100);
    const DSBUFFERDESC description{
        sizeof(DSBUFFERDESC), DSBCAPS_CTRLPOSITIONNOTIFY, RefilledStream::kBytes, 0, &format, {}};
    IDirectSoundBuffer* buffer = nullptr;
    EXPECT_EQ(sound->CreateSoundBuffer(&description, &buffer, nullptr), DS_OK);
    return BufferRef(buffer);
}

TEST(SoundOnTheCard, GoesOnByItselfAndAsksForMore) {
    platform::ObjectRef<IDirectSound8> sound;
    RefilledStream stream(streamOnCard(sound));
    const auto begin = steady_clock::now();
    stream.buffer().Play(0, 0, DSBPLAY_LOOPING);
    while (positionOf(stream.buffer()) == 0 && steady_clock::now() < begin + milliseconds(5000)) Sleep(1);
    EXPECT_NE(positionOf(stream.buffer()), 0U);
    while (stream.refills() < 3 && steady_clock::now() < begin + milliseconds(5000)) Sleep(1);
    EXPECT_GE(stream.refills(), 3);
    std::vector<std::int16_t> heard(20, 7);
    platform::mixSound(heard);
    EXPECT_EQ(heard, std::vector<std::int16_t>(20)) << "the card's sound belongs to the card";
}

TEST(SoundOnTheCard, EndsWhileItPlays) {
    for (int i = 0; i < 5; ++i) {
        platform::ObjectRef<IDirectSound8> sound;
        const BufferRef buffer = streamOnCard(sound);
        EXPECT_EQ(buffer->Play(0, 0, DSBPLAY_LOOPING), DS_OK);
        if (i % 2 == 0) Sleep(15);
    }
    EXPECT_TRUE(platform::testing::voices().empty());
}

}  // namespace
