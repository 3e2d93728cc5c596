#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "control/call_controls.h"
#include "desktop/video.h"
#include "game_thread.h"
#include "opened_card.h"

// What the sound card and its buffers promise.
namespace {

using grub::sampleBytes;

TEST(SoundCard, IsNotThereWithoutADriver) {
    IDirectSound8* sound = nullptr;
    ::setenv("SDL_AUDIODRIVER", "no such driver", 1);
    EXPECT_EQ(DirectSoundCreate8(nullptr, &sound, nullptr), DSERR_NODRIVER);
    platform::useDummyDrivers();
    EXPECT_EQ(DirectSoundCreate8(nullptr, &sound, nullptr), DS_OK) << "a driver was all that was missing";
    sound->Release();
}

TEST(Duplicates, ShareTheMemoryAndNothingElseAndOutliveTheOriginal) {
    const OpenedCard card;
    auto original = card.bufferOf(44'100, Samples(100, 1000));
    original->SetPan(-10'000);
    original->Play(0, 0, DSBPLAY_LOOPING);
    OpenedCard::play(30);
    const auto copy = card.duplicate(*original);
    copy->Play(0, 0, 0);
    EXPECT_EQ(OpenedCard::play(1), (Samples{2000, 0})) << "the pan was taken over";
    copy->SetPan(10'000);
    EXPECT_EQ(OpenedCard::play(1), (Samples{1000, 1000})) << "and is its own from then on";
    EXPECT_EQ(store(*copy, 0, sampleBytes(Samples(100, 500))), DS_OK);
    EXPECT_EQ(OpenedCard::play(1), (Samples{500, 500}));
    OpenedCard::play(97);
    original.reset();
    copy->Play(0, 0, 0);
    EXPECT_EQ(OpenedCard::play(1), (Samples{0, 500}));
}

TEST(Mixing, PlaysEveryFormat) {
    const Samples stereo{256, -512, 32767, -32768};
    const auto mono8 = waveFormat(1, 8, 44'100);
    const auto mono16 = waveFormat(1, 16, 44'100);
    const auto stereo16 = waveFormat(2, 16, 44'100);
    struct Row {
        const char* what;
        WAVEFORMATEX format;
        std::vector<BYTE> stored;
        Samples heard;
    };
    const Row rows[]{
        {"8 bits, mono", mono8, {0x80, 0x81, 0x00, 0xFF}, {0, 0, 256, 256, -32768, -32768, 32512, 32512}},
        {"8 bits, stereo", waveFormat(2, 8, 44'100), {0x80, 0x81, 0x7F, 0x90}, {0, 256, -256, 4096}},
        {"16 bits, mono", mono16, sampleBytes(stereo), {256, 256, -512, -512, 32767, 32767, -32768, -32768}},
        {"16 bits, stereo", stereo16, sampleBytes(stereo), stereo},
        {"a piece of a frame at the end", stereo16, {0, 1, 0, 2, 0, 3}, {256, 512, 0, 0}},
    };
    for (const Row& row : rows) {
        const OpenedCard card;
        const auto buffer = card.bufferOf(row.format, row.stored);
        buffer->Play(0, 0, 0);
        EXPECT_EQ(OpenedCard::play(row.heard.size() / 2), row.heard) << row.what;
    }
}

TEST(SoundOnTheCard, GoesOnByItselfAndMayEndWhileItPlays) {
    platform::useDummyDrivers();
    for (const int halves : {3, 0, 0}) {
        const OpenedCard card(platform::SoundOutput::Card);
        const auto buffer = card.silence(waveFormat(1, 16, 44'100), 8192);
        const ScopedEvent passed;
        const DSBPOSITIONNOTIFY at[]{{4095, passed.handle}, {8191, passed.handle}};
        setEvents(*buffer, at);
        buffer->Play(0, 0, DSBPLAY_LOOPING);
        for (int half = 0; half < halves; ++half) EXPECT_EQ(WaitForSingleObject(passed.handle, 5000), WAIT_OBJECT_0);
        EXPECT_EQ(OpenedCard::play(10), Samples(20)) << "the card's sound belongs to the card";
    }
    EXPECT_TRUE(platform::testing::voices().empty());
}

}  // namespace
