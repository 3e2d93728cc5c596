#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <vector>

#include "control/call_controls.h"
#include "desktop/video.h"
#include "opened_card.h"

// What the calls of the sound card and its buffers promise.
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

TEST(SoundCard, RefusesFormatsThatItCannotPlay) {
    const OpenedCard card;
    struct Row {
        const char* what;
        WORD tag, channels, bits, frameBytes;
        DWORD rate;
        HRESULT result;
    };
    for (const Row& row : {
             Row{"the lowest rate", 1, 2, 16, 4, 100, DS_OK},
             Row{"the highest rate", 1, 2, 16, 4, 200'000, DS_OK},
             Row{"a rate of radio waves", 1, 2, 16, 4, 200'001, DSERR_BADFORMAT},
             Row{"nine channels", 1, 9, 16, 18, 22'050, DSERR_BADFORMAT},
             Row{"12 bits", 1, 2, 12, 3, 22'050, DSERR_BADFORMAT},
             Row{"frames of another size", 1, 2, 16, 3, 22'050, DSERR_BADFORMAT},
         }) {
        SCOPED_TRACE(row.what);
        WAVEFORMATEX format{row.tag, row.channels, row.rate, 0, row.frameBytes, row.bits, 0};
        const DSBUFFERDESC description{sizeof(DSBUFFERDESC), 0, 1000, 0, &format, {}};
        IDirectSoundBuffer* buffer = nullptr;
        EXPECT_EQ(card.sound().CreateSoundBuffer(&description, &buffer, nullptr), row.result);
        const BufferRef owned(buffer);
        if (!owned) continue;
        owned->Play(0, 0, DSBPLAY_LOOPING);
        EXPECT_EQ(OpenedCard::play(1000), Samples(2000));
    }
}

TEST(Duplicates, ShareTheMemoryAndNothingElseAndOutliveTheOriginal) {
    const OpenedCard card;
    auto original = card.bufferOf(44'100, Samples(100, 1000));
    original->SetPan(-10'000);
    original->Play(0, 0, DSBPLAY_LOOPING);
    OpenedCard::play(30);
    const auto copy = card.duplicate(*original);
    EXPECT_EQ(statusOf(*copy), 0U);
    EXPECT_EQ(positionOf(*copy), 0U);
    copy->Play(0, 0, 0);
    EXPECT_EQ(OpenedCard::play(1), (Samples{2000, 0})) << "the pan was taken over";
    copy->SetPan(10'000);
    EXPECT_EQ(OpenedCard::play(1), (Samples{1000, 1000})) << "and is its own from then on";
    EXPECT_EQ(store(*copy, 0, sampleBytes(Samples(100, 500))), DS_OK);
    EXPECT_EQ(OpenedCard::play(1), (Samples{500, 500}));
    OpenedCard::play(97);
    EXPECT_EQ(statusOf(*copy), 0U);
    EXPECT_EQ(positionOf(*original), 2U * 30);
    original.reset();
    copy->Play(0, 0, 0);
    EXPECT_EQ(OpenedCard::play(1), (Samples{0, 500}));
}

TEST(LostBuffers, AreSilentAndRefusedUntilTheyAreRestored) {
    const OpenedCard card;
    const auto buffer = card.bufferOf(44'100, Samples(100, 1000));
    buffer->Play(0, 0, DSBPLAY_LOOPING);
    platform::testing::SoundControls::loseBuffers();
    EXPECT_EQ(OpenedCard::play(10), Samples(20));
    EXPECT_EQ(statusOf(*buffer), DSBSTATUS_PLAYING | DSBSTATUS_LOOPING | DSBSTATUS_BUFFERLOST);
    EXPECT_EQ(positionOf(*buffer), 20U) << "the cursor goes on";
    EXPECT_EQ(buffer->Play(0, 0, 0), DSERR_BUFFERLOST);
    EXPECT_EQ(store(*buffer, 0, std::vector<BYTE>(10)), DSERR_BUFFERLOST);
    EXPECT_EQ(buffer->Restore(), DS_OK);
    EXPECT_EQ(OpenedCard::play(10), Samples(20)) << "what it held is gone";
    EXPECT_EQ(store(*buffer, 190, sampleBytes(Samples(100, 500))), DS_OK) << "across the end";
    EXPECT_EQ(OpenedCard::play(1), (Samples{500, 500}));
}

TEST(Cursors, StopStayAndEndAtTheStart) {
    const OpenedCard card;
    const auto buffer = card.silence(waveFormat(1, 16, 44'100), 2000);
    struct Row {
        const char* what;
        std::function<void(IDirectSoundBuffer&)> act;
        std::size_t frames;      // played after it
        DWORD position, status;  // then
    };
    for (const Row& row : {
             Row{"started", [](auto& b) { b.Play(0, 0, 0); }, 300, 600, DSBSTATUS_PLAYING},
             Row{"stopped", [](auto& b) { b.Stop(); }, 300, 600, 0},
             Row{"started again", [](auto& b) { b.Play(0, 0, 0); }, 699, 1998, DSBSTATUS_PLAYING},
             Row{"ended", [](auto&) {}, 1, 0, 0},
             Row{"put into a frame", [](auto& b) { b.SetCurrentPosition(1001); }, 0, 1000, 0},
             Row{"in a loop", [](auto& b) { b.Play(0, 0, DSBPLAY_LOOPING); }, 600, 200, 5},
             Row{"no longer in a loop", [](auto& b) { b.Play(0, 0, 0); }, 799, 1798, DSBSTATUS_PLAYING},
         }) {
        row.act(*buffer);
        OpenedCard::play(row.frames);
        EXPECT_EQ(positionOf(*buffer), row.position) << row.what;
        EXPECT_EQ(statusOf(*buffer), row.status) << row.what;
    }
}

}  // namespace
