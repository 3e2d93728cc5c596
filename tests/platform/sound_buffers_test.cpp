#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <thread>

#include "control/call_controls.h"
#include "desktop/video.h"
#include "hand_mixed_card.h"

// What the calls of the sound card and its buffers promise and refuse.
namespace {

using platform::Call;
using platform::SoundOutput;
using platform::testing::SoundControls;

std::vector<BYTE> countedBytes(std::size_t count) {
    std::vector<BYTE> bytes(count);
    std::iota(bytes.begin(), bytes.end(), BYTE{1});
    return bytes;
}

TEST(SoundCard, IsNotThereWhenTheSystemHasNone) {
    platform::setSoundOutput(SoundOutput::None);
    auto* sound = reinterpret_cast<IDirectSound8*>(std::uintptr_t{8});
    EXPECT_EQ(DirectSoundCreate8(nullptr, &sound, nullptr), DSERR_NODRIVER);
    EXPECT_EQ(sound, nullptr);
    platform::setSoundOutput(SoundOutput::Card);
    ::setenv("SDL_AUDIODRIVER", "no such driver", 1);
    EXPECT_EQ(DirectSoundCreate8(nullptr, &sound, nullptr), DSERR_NODRIVER);
    platform::useDummyDrivers();
    EXPECT_EQ(DirectSoundCreate8(nullptr, &sound, nullptr), DS_OK) << "a driver was all that was missing";
    sound->Release();
}

TEST(SoundCard, IsSilentUntilItIsOpenAndAfterItIsClosed) {
    std::vector<std::int16_t> heard(101, 7);
    platform::mixSound(heard);
    EXPECT_EQ(heard, std::vector<std::int16_t>(101));
    {
        const HandMixedCard card;
        const auto buffer = card.bufferOf(1, 44'100, std::vector<std::int16_t>(1000, 5));
        buffer->Play(0, 0, 0);
        platform::mixSound(heard);
        std::vector<std::int16_t> expected(101, 5);
        expected.back() = 0;  // half a frame is none
        EXPECT_EQ(heard, expected);
        EXPECT_EQ(platform::testing::voices().size(), 1U);
    }
    EXPECT_EQ(HandMixedCard::play(10), std::vector<std::int16_t>(20));
    EXPECT_TRUE(platform::testing::voices().empty());
}

TEST(SoundCard, StaysOpenForBuffersThatAreLeft) {
    BufferRef buffer;
    {
        const HandMixedCard card;
        buffer = card.bufferOf(1, 44'100, std::vector<std::int16_t>(1000, 5));
    }
    buffer->Play(0, 0, 0);
    EXPECT_EQ(HandMixedCard::play(2), std::vector<std::int16_t>(4, 5));
}

TEST(SoundCard, RefusesWhatIsNoSound) {
    const HandMixedCard card;
    struct Row {
        const char* what;
        std::function<void(DSBUFFERDESC&, WAVEFORMATEX&)> spoil;
        HRESULT result;
    };
    const Row rows[]{
        {"nothing is wrong", [](auto&, auto&) {}, DS_OK},
        {"another size of the structure", [](auto& d, auto&) { d.dwSize = 20; }, DSERR_INVALIDPARAM},
        {"no format", [](auto& d, auto&) { d.lpwfxFormat = nullptr; }, DSERR_INVALIDPARAM},
        {"no bytes", [](auto& d, auto&) { d.dwBufferBytes = 0; }, DSERR_INVALIDPARAM},
        {"fewer than four bytes", [](auto& d, auto&) { d.dwBufferBytes = 3; }, DSERR_INVALIDPARAM},
        {"more than there is", [](auto& d, auto&) { d.dwBufferBytes = 0x10000000; }, DSERR_INVALIDPARAM},
        {"packed samples", [](auto&, auto& f) { f.wFormatTag = 2; }, DSERR_BADFORMAT},
        {"no channel", [](auto&, auto& f) { f.nChannels = f.nBlockAlign = 0; }, DSERR_BADFORMAT},
        {"nine channels", [](auto&, auto& f) { f.nChannels = 9, f.nBlockAlign = 18; }, DSERR_BADFORMAT},
        {"12 bits", [](auto&, auto& f) { f.wBitsPerSample = 12; }, DSERR_BADFORMAT},
        {"no bits", [](auto&, auto& f) { f.wBitsPerSample = f.nBlockAlign = 0; }, DSERR_BADFORMAT},
        {"frames of another size", [](auto&, auto& f) { f.nBlockAlign = 3; }, DSERR_BADFORMAT},
        {"rate 0", [](auto&, auto& f) { f.nSamplesPerSec = 0; }, DSERR_BADFORMAT},
        {"a rate of radio waves", [](auto&, auto& f) { f.nSamplesPerSec = 200'001; }, DSERR_BADFORMAT},
        {"the lowest rate", [](auto&, auto& f) { f.nSamplesPerSec = 100; }, DS_OK},
        {"the highest rate", [](auto&, auto& f) { f.nSamplesPerSec = 200'000; }, DS_OK},
    };
    for (const Row& row : rows) {
        WAVEFORMATEX format = waveFormat(2, 16, 22'050);
        DSBUFFERDESC description{sizeof(DSBUFFERDESC), 0, 1000, 0, &format, {}};
        row.spoil(description, format);
        IDirectSoundBuffer* buffer = nullptr;
        EXPECT_EQ(card.sound().CreateSoundBuffer(&description, &buffer, nullptr), row.result) << row.what;
        const BufferRef owned(buffer);
        if (!owned) continue;
        owned->Play(0, 0, DSBPLAY_LOOPING);
        EXPECT_EQ(HandMixedCard::play(1000), std::vector<std::int16_t>(2000)) << row.what;
    }
}

TEST(SoundCard, WantsToBeSharedBeforeItIsUsed) {
    platform::setSoundOutput(SoundOutput::ByHand);
    IDirectSound8* created = nullptr;
    ASSERT_EQ(DirectSoundCreate8(nullptr, &created, nullptr), DS_OK);
    const platform::ObjectRef<IDirectSound8> sound(created);
    WAVEFORMATEX format = waveFormat(1, 16, 44'100);
    const DSBUFFERDESC description{sizeof(DSBUFFERDESC), 0, 1000, 0, &format, {}};
    IDirectSoundBuffer* buffer = nullptr;
    EXPECT_EQ(sound->CreateSoundBuffer(&description, &buffer, sound.get()), DSERR_NOAGGREGATION);
    EXPECT_EQ(DirectSoundCreate8(nullptr, &created, sound.get()), DSERR_NOAGGREGATION);
    EXPECT_EQ(sound->CreateSoundBuffer(&description, &buffer, nullptr), DSERR_PRIOLEVELNEEDED);
    EXPECT_EQ(sound->SetCooperativeLevel(nullptr, DSSCL_PRIORITY), DSERR_INVALIDPARAM);
    EXPECT_EQ(sound->SetCooperativeLevel(reinterpret_cast<HWND>(std::uintptr_t{8}), 1), DSERR_INVALIDPARAM);
    EXPECT_EQ(sound->SetCooperativeLevel(reinterpret_cast<HWND>(std::uintptr_t{8}), DSSCL_PRIORITY), DS_OK);
    EXPECT_EQ(sound->CreateSoundBuffer(&description, &buffer, nullptr), DS_OK);
    const BufferRef owned(buffer);
    platform::setSoundOutput(SoundOutput::Card);
}

TEST(SoundBuffers, LockAnyRangeAndGoRoundTheEnd) {
    const HandMixedCard card;
    const auto counted = countedBytes(100);
    struct Row {
        DWORD offset, bytes, flags;
        DWORD first, second;
    };
    for (const auto& row :
         {Row{0, 100, 0, 100, 0}, Row{10, 20, 0, 20, 0}, Row{90, 10, 0, 10, 0}, Row{90, 30, 0, 10, 20},
          Row{99, 100, 0, 1, 99}, Row{0, 0, DSBLOCK_ENTIREBUFFER, 100, 0}, Row{40, 7, DSBLOCK_ENTIREBUFFER, 60, 40}}) {
        const auto buffer = card.bufferOf(waveFormat(1, 8, 44'100), counted);
        void* first = nullptr;
        void* second = nullptr;
        DWORD firstBytes = 0;
        DWORD secondBytes = 1;
        ASSERT_EQ(buffer->Lock(row.offset, row.bytes, &first, &firstBytes, &second, &secondBytes, row.flags), DS_OK);
        ASSERT_EQ(firstBytes, row.first) << row.offset;
        ASSERT_EQ(secondBytes, row.second) << row.offset;
        EXPECT_EQ(second == nullptr, row.second == 0);
        auto expected = counted;
        const auto overwrite = [&](void* piece, DWORD bytes, std::size_t at) {
            EXPECT_TRUE(std::equal(expected.begin() + static_cast<std::ptrdiff_t>(at),
                                   expected.begin() + static_cast<std::ptrdiff_t>(at + bytes),
                                   static_cast<BYTE*>(piece)))
                << "a locked piece holds what the buffer holds";
            std::fill_n(static_cast<BYTE*>(piece), bytes, BYTE{0xEE});
            std::fill_n(expected.begin() + static_cast<std::ptrdiff_t>(at), bytes, BYTE{0xEE});
        };
        overwrite(first, firstBytes, row.offset);
        overwrite(second, secondBytes, 0);
        EXPECT_EQ(platform::testing::heldSamples(*buffer), counted) << "nothing is heard before the unlock";
        EXPECT_EQ(buffer->Unlock(first, firstBytes, second, secondBytes), DS_OK);
        EXPECT_EQ(platform::testing::heldSamples(*buffer), expected) << row.offset;
    }
}

TEST(SoundBuffers, TakeOverOnlyWhatTheUnlockNames) {
    const HandMixedCard card;
    const auto buffer = card.bufferOf(waveFormat(1, 8, 44'100), countedBytes(100));
    void* first = nullptr;
    DWORD firstBytes = 0;
    ASSERT_EQ(buffer->Lock(10, 20, &first, &firstBytes, nullptr, nullptr, 0), DS_OK);
    std::fill_n(static_cast<BYTE*>(first), 20, BYTE{0xEE});
    EXPECT_EQ(buffer->Unlock(first, 5, nullptr, 0), DS_OK);
    auto expected = countedBytes(100);
    std::fill_n(expected.begin() + 10, 5, BYTE{0xEE});
    EXPECT_EQ(platform::testing::heldSamples(*buffer), expected);
}

TEST(SoundBuffers, RefuseCallsThatMakeNoSense) {
    const HandMixedCard card;
    const auto buffer = card.bufferOf(1, 44'100, std::vector<std::int16_t>(50));
    void* first = nullptr;
    DWORD bytes = 0;
    IDirectSoundBuffer& b = *buffer;
    const auto lock = [&](DWORD offset, DWORD count) {
        return b.Lock(offset, count, &first, &bytes, nullptr, nullptr, 0);
    };
    EXPECT_EQ(lock(100, 1), DSERR_INVALIDPARAM) << "behind the end";
    EXPECT_EQ(lock(0, 101), DSERR_INVALIDPARAM) << "more than all";
    EXPECT_EQ(lock(0, 0), DSERR_INVALIDPARAM) << "nothing";
    EXPECT_EQ(b.Lock(0, 10, nullptr, &bytes, nullptr, nullptr, 0), DSERR_INVALIDPARAM);
    EXPECT_EQ(b.Unlock(first, 10, nullptr, 0), DSERR_INVALIDCALL) << "not locked";
    ASSERT_EQ(lock(0, 10), DS_OK);
    EXPECT_EQ(lock(20, 10), DSERR_INVALIDCALL) << "locked already";
    EXPECT_EQ(b.Unlock(static_cast<BYTE*>(first) + 1, 9, nullptr, 0), DSERR_INVALIDPARAM) << "another place";
    EXPECT_EQ(b.Unlock(first, 11, nullptr, 0), DSERR_INVALIDPARAM) << "more than was locked";
    EXPECT_EQ(b.Unlock(first, 10, first, 1), DSERR_INVALIDPARAM) << "a piece that was not given";
    EXPECT_EQ(b.Unlock(first, 10, nullptr, 0), DS_OK);
    EXPECT_EQ(b.Play(1, 0, 0), DSERR_INVALIDPARAM);
    EXPECT_EQ(b.SetCurrentPosition(100), DSERR_INVALIDPARAM);
    for (const LONG volume : {1, -10'001}) EXPECT_EQ(b.SetVolume(volume), DSERR_INVALIDPARAM);
    for (const LONG pan : {10'001, -10'001}) EXPECT_EQ(b.SetPan(pan), DSERR_INVALIDPARAM);
    EXPECT_EQ(b.GetStatus(nullptr), DSERR_INVALIDPARAM);
    void* object = &b;
    EXPECT_EQ(b.QueryInterface(GUID{}, &object), DSERR_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    const DSBPOSITIONNOTIFY behind{100, nullptr};
    EXPECT_EQ(setEvents(b, {&behind, 1}), DSERR_INVALIDPARAM);
    b.Play(0, 0, 0);
    EXPECT_EQ(setEvents(b, {}), DSERR_INVALIDCALL) << "while it plays";
}

TEST(SoundBuffers, HaveOnlyTheControlsTheyWereMadeWith) {
    const HandMixedCard card;
    WAVEFORMATEX format = waveFormat(1, 16, 44'100);
    const DSBUFFERDESC description{sizeof(DSBUFFERDESC), DSBCAPS_LOCSOFTWARE, 1000, 0, &format, {}};
    IDirectSoundBuffer* created = nullptr;
    ASSERT_EQ(card.sound().CreateSoundBuffer(&description, &created, nullptr), DS_OK);
    const BufferRef buffer(created);
    EXPECT_EQ(buffer->SetVolume(0), DSERR_CONTROLUNAVAIL);
    EXPECT_EQ(buffer->SetPan(0), DSERR_CONTROLUNAVAIL);
    EXPECT_EQ(setEvents(*buffer, {}), DSERR_NOINTERFACE);
}

TEST(Duplicates, ShareTheMemoryAndNothingElse) {
    const HandMixedCard card;
    const auto original = card.bufferOf(1, 44'100, std::vector<std::int16_t>(100, 1000));
    original->SetPan(-10'000);
    original->Play(0, 0, DSBPLAY_LOOPING);
    HandMixedCard::play(30);
    const auto copy = card.duplicate(*original);
    EXPECT_EQ(statusOf(*copy), 0U);
    EXPECT_EQ(positionOf(*copy), 0U);
    copy->Play(0, 0, 0);
    EXPECT_EQ(HandMixedCard::play(1), (std::vector<std::int16_t>{2000, 0})) << "the pan was taken over";
    copy->SetPan(10'000);
    EXPECT_EQ(HandMixedCard::play(1), (std::vector<std::int16_t>{1000, 1000})) << "and is its own from then on";
    EXPECT_EQ(store(*copy, 0, bytesOf(std::vector<std::int16_t>(100, 500))), DS_OK);
    EXPECT_EQ(HandMixedCard::play(1), (std::vector<std::int16_t>{500, 500}));
    HandMixedCard::play(97);
    EXPECT_EQ(statusOf(*copy), 0U);
    EXPECT_EQ(positionOf(*original), 2U * 30);
    const auto voices = platform::testing::voices();
    ASSERT_EQ(voices.size(), 2U);
    EXPECT_TRUE(voices[0].playing && voices[0].looping && !voices[1].playing);
    EXPECT_EQ(voices[0].pan, -10'000);
    EXPECT_EQ(voices[1].pan, 10'000);
}

TEST(Duplicates, OutliveTheOriginal) {
    const HandMixedCard card;
    auto original = card.bufferOf(1, 22'050, std::vector<std::int16_t>(100, 1000));
    const auto copy = card.duplicate(*original);
    original.reset();
    copy->Play(0, 0, DSBPLAY_LOOPING);
    HandMixedCard::play(100);
    EXPECT_EQ(HandMixedCard::play(1), (std::vector<std::int16_t>{1000, 1000}));
}

TEST(LostBuffers, AreSilentAndRefusedUntilTheyAreRestored) {
    SoundControls controls;
    const HandMixedCard card;
    const auto playing = card.bufferOf(1, 44'100, std::vector<std::int16_t>(100, 1000));
    const auto stopped = card.bufferOf(1, 44'100, std::vector<std::int16_t>(100, 1000));
    playing->Play(0, 0, DSBPLAY_LOOPING);
    void* first = nullptr;
    DWORD bytes = 0;
    ASSERT_EQ(playing->Lock(0, 200, &first, &bytes, nullptr, nullptr, 0), DS_OK);
    controls.loseBuffers();
    EXPECT_EQ(playing->Unlock(first, bytes, nullptr, 0), DS_OK);
    EXPECT_EQ(HandMixedCard::play(10), std::vector<std::int16_t>(20));
    EXPECT_EQ(statusOf(*playing), DSBSTATUS_PLAYING | DSBSTATUS_LOOPING | DSBSTATUS_BUFFERLOST);
    EXPECT_EQ(positionOf(*playing), 20U) << "the cursor goes on";
    EXPECT_EQ(stopped->Play(0, 0, 0), DSERR_BUFFERLOST);
    EXPECT_EQ(store(*playing, 0, std::vector<BYTE>(10)), DSERR_BUFFERLOST);
    EXPECT_EQ(card.sound().Compact(), DS_OK);
    EXPECT_EQ(playing->Restore(), DS_OK);
    EXPECT_EQ(HandMixedCard::play(10), std::vector<std::int16_t>(20)) << "what it held is gone";
    EXPECT_EQ(store(*playing, 0, bytesOf(std::vector<std::int16_t>(100, 500))), DS_OK);
    EXPECT_EQ(HandMixedCard::play(1), (std::vector<std::int16_t>{500, 500}));
    EXPECT_EQ(stopped->Play(0, 0, 0), DSERR_BUFFERLOST) << "each has a memory of its own";
}

TEST(SoundControlsOfTests, FailTheCallsThatTheyAreToldTo) {
    SoundControls controls;
    controls.fail(Call::DirectSoundCreate8, DSERR_NODRIVER);
    IDirectSound8* none = nullptr;
    EXPECT_EQ(DirectSoundCreate8(nullptr, &none, nullptr), DSERR_NODRIVER);
    controls.fail(Call::DirectSoundCreate8, DS_OK);
    const HandMixedCard card;
    const auto buffer = card.silence(waveFormat(1, 16, 44'100), 1000);
    controls.fail(Call::Play, DSERR_BUFFERLOST, 1);
    EXPECT_EQ(buffer->Play(0, 0, 0), DS_OK);
    EXPECT_EQ(buffer->Play(0, 0, 0), DSERR_BUFFERLOST);
    EXPECT_EQ(controls.count(Call::Play), 2U);
    controls.fail(Call::Stop, E_FAIL);
    EXPECT_EQ(buffer->Stop(), E_FAIL);
    EXPECT_EQ(statusOf(*buffer), DSBSTATUS_PLAYING) << "a call that fails does nothing";
}

}  // namespace
