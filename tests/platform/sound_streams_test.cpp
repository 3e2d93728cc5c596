#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <utility>

#include "control/call_controls.h"
#include "desktop/video.h"
#include "game_thread.h"
#include "opened_card.h"
#include "tone.h"

// Streams that threads refill while they play: by hand without a gap, on the system's card in real time.
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// A looping stream of one channel. Two threads refill the halves that have been played with the next samples of a
/// sound, as a game does; at its end they repeat its last half.
class RefilledStream {
public:
    static constexpr DWORD kHalf = 4096;  // bytes

    RefilledStream(const OpenedCard& card, DWORD rate, Samples sound)
        : sound_(std::move(sound)), buffer_(card.silence(waveFormat(1, 16, rate), 2 * kHalf)) {
        const DSBPOSITIONNOTIFY at[]{{kHalf - 1, passed_.handle}, {2 * kHalf - 1, passed_.handle}};
        setEvents(*buffer_, at);
        storeHalf();
        storeHalf();
        EXPECT_EQ(buffer_->Play(0, 0, DSBPLAY_LOOPING), DS_OK);
    }
    ~RefilledStream() { SetEvent(end_.handle); }
    RefilledStream(const RefilledStream&) = delete;
    RefilledStream& operator=(const RefilledStream&) = delete;

    [[nodiscard]] std::size_t refills() const { return halves_ - 2; }

private:
    void storeHalf() {
        const std::size_t number = halves_++;
        const std::size_t frames = kHalf / 2;
        const auto next = std::span(sound_).subspan(std::min(number * frames, sound_.size() - frames), frames);
        EXPECT_EQ(store(*buffer_, number % 2 * kHalf, grub::sampleBytes(next)), DS_OK);
    }
    void refill() {
        const HANDLE both[]{passed_.handle, end_.handle};
        while (WaitForMultipleObjects(2, both, FALSE, INFINITE) == WAIT_OBJECT_0) storeHalf();
    }

    Samples sound_;
    BufferRef buffer_;
    std::atomic<std::size_t> halves_{0};  // stored so far
    ScopedEvent passed_;
    ScopedEvent end_{true};
    GameThread first_{[this] { refill(); }};
    GameThread second_{[this] { refill(); }};
};

TEST(Streams, JoinRefilledHalvesWithoutASeam) {
    for (const DWORD rate : {22'050U, 44'100U, 48'000U}) {
        SCOPED_TRACE(rate);
        const OpenedCard card;
        const RefilledStream stream(card, rate, grub::tone(441, rate, std::size_t{2} * rate));
        Samples heard;
        while (heard.size() < 2UL * 50'000) {
            const auto block = OpenedCard::play(100);
            heard.insert(heard.end(), block.begin(), block.end());
        }
        EXPECT_EQ(stream.refills(), 50'000 * std::size_t{rate} / 44'100 / (RefilledStream::kHalf / 2));
        EXPECT_LT(grub::findTone(grub::sideOf(heard, 0, 4410, 44'100), 441, 44'100).residual, -80);
    }
}

TEST(SoundOnTheCard, GoesOnByItselfAndMayEndWhileItPlays) {
    platform::useDummyDrivers();
    for (const std::size_t wanted : {std::size_t{3}, std::size_t{1}, std::size_t{0}, std::size_t{0}}) {
        const OpenedCard card(platform::SoundOutput::Card);
        const RefilledStream stream(card, 44'100, Samples(RefilledStream::kHalf, 1));
        const auto begin = steady_clock::now();
        while (stream.refills() < wanted && steady_clock::now() < begin + milliseconds(5000)) Sleep(1);
        EXPECT_GE(stream.refills(), wanted);
        EXPECT_EQ(OpenedCard::play(10), Samples(20)) << "the card's sound belongs to the card";
    }
    EXPECT_TRUE(platform::testing::voices().empty());
}

}  // namespace
