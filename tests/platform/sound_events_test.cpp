#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <deque>

#include "control/call_controls.h"
#include "dsound/sound_mixer.h"
#include "game_thread.h"
#include "hand_mixed_card.h"

// Cursors and position events follow the frames that were mixed.
namespace {

using platform::FrameEvent;
using platform::SoundMixer;
using platform::SoundVoice;

/// Events are told apart by number; nobody sets them here.
HANDLE eventNumber(std::size_t number) { return reinterpret_cast<HANDLE>(number); }

struct Passed {
    std::vector<std::size_t> events;
    std::size_t cursor;
    bool playing;

    bool operator==(const Passed&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Passed& passed) {
    for (const std::size_t event : passed.events) out << event << ' ';
    return out << "cursor " << passed.cursor << (passed.playing ? " playing" : " stopped");
}

/// Mixes one block after the other at the voice's own rate; the events of each block and where the cursor stood after.
std::vector<Passed> mixBlocks(SoundVoice& voice, SoundMixer& mixer, const std::vector<std::size_t>& blocks) {
    std::vector<Passed> all;
    for (const std::size_t frames : blocks) {
        std::vector<float> stereo(2 * frames);
        mixer.mix(stereo);
        Passed passed{{}, voice.cursor(), voice.playing()};
        const platform::RaisedEvents raised = mixer.takeRaised();
        for (const HANDLE event : raised.all()) passed.events.push_back(reinterpret_cast<std::size_t>(event));
        all.push_back(passed);
    }
    return all;
}

TEST(PositionEvents, AreRaisedOncePerPassOfTheCursorInItsOrder) {
    constexpr std::size_t kFrames = 100;
    struct Row {
        const char* what;
        bool looping;
        std::size_t start;
        std::vector<std::size_t> events;  // frames; their numbers count from 1
        std::vector<std::size_t> blocks;
        std::vector<Passed> passed;
    };
    const Row rows[]{
        {"a block ends on the frame before", true, 0, {49}, {49, 1}, {{{}, 49, true}, {{1}, 50, true}}},
        {"a block ends behind it", true, 0, {49}, {50, 99, 1}, {{{1}, 50, true}, {{}, 49, true}, {{1}, 50, true}}},
        {"both halves in one block", true, 0, {49, 99}, {100, 30}, {{{1, 2}, 0, true}, {{}, 30, true}}},
        {"written down in the wrong order", true, 0, {99, 49}, {100}, {{{2, 1}, 0, true}}},
        {"across the wrap", true, 90, {49, 99}, {60, 60}, {{{2, 1}, 50, true}, {{2}, 10, true}}},
        {"a block of several rounds", true, 20, {49, 99}, {250}, {{{1, 2, 1, 2, 1}, 70, true}}},
        {"first and last frame",
         true,
         0,
         {0, 99},
         {1, 98, 1, 1},
         {{{1}, 1, true}, {{}, 99, true}, {{2}, 0, true}, {{1}, 1, true}}},
        {"two on one frame", true, 0, {10, 10}, {20}, {{{1, 2}, 20, true}}},
        {"without a loop the end stops it",
         false,
         0,
         {49, 99},
         {60, 60, 60},
         {{{1}, 60, true}, {{2}, 0, false}, {{}, 0, false}}},
        {"those before the start stay silent", false, 60, {49, 59}, {100}, {{{}, 0, false}}},
    };
    for (const Row& row : rows) {
        SoundMixer mixer(44'100);
        SoundVoice voice(std::make_shared<platform::SampleMemory>(platform::SampleFormat{44'100, 2, 16}, 4 * kFrames),
                         nullptr);
        mixer.add(voice);
        std::vector<FrameEvent> events;
        for (const std::size_t frame : row.events) events.push_back({frame, eventNumber(events.size() + 1)});
        voice.setEvents(events);
        voice.setCursor(row.start);
        voice.play(row.looping);
        EXPECT_EQ(mixBlocks(voice, mixer, row.blocks), row.passed) << row.what;
    }
}

TEST(PositionEvents, ComeAtTheFramesOfTheSoundWhateverTheCardsRate) {
    SoundMixer mixer(48'000);
    SoundVoice voice(std::make_shared<platform::SampleMemory>(platform::SampleFormat{8000, 1, 16}, 2 * 1000),
                     mixer.filterFrom(8000));
    mixer.add(voice);
    voice.setEvents({{499, eventNumber(1)}, {999, eventNumber(2)}});
    voice.play(true);
    // Six samples of the card are one frame.
    EXPECT_EQ(
        mixBlocks(voice, mixer, {2999, 1, 2999, 1, 2994, 6}),
        (std::vector<Passed>{
            {{}, 499, true}, {{1}, 500, true}, {{}, 999, true}, {{2}, 0, true}, {{}, 499, true}, {{1}, 500, true}}));
    std::vector<float> longTime(std::size_t{2} * 20 * 48'000 + 2);
    mixer.mix(longTime);
    EXPECT_EQ(voice.cursor(), (500 + 20 * 8000) % 1000U) << "a sixth of a frame behind";
    EXPECT_EQ(mixer.takeRaised().count, 2U * 20 * 8);
}

TEST(PositionEvents, ThatFitNowhereAreDropped) {
    SoundMixer mixer(44'100);
    SoundVoice voice(std::make_shared<platform::SampleMemory>(platform::SampleFormat{44'100, 1, 16}, 4), nullptr);
    mixer.add(voice);
    voice.setEvents({{0, eventNumber(1)}, {1, eventNumber(2)}});
    voice.play(true);
    std::vector<float> stereo(10'000);
    mixer.mix(stereo);
    EXPECT_EQ(mixer.takeRaised().count, 1024U);
    EXPECT_EQ(mixer.takeRaised().count, 0U);
}

TEST(PositionEvents, StopTheMixUntilTheThreadThatTheyWokeWaitsAgain) {
    const platform::testing::SoundControls controls;
    const HandMixedCard card;
    constexpr DWORD kBytes = 4000;
    const auto buffer = card.silence(waveFormat(2, 16, 44'100), kBytes);
    const HANDLE passed = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    const HANDLE end = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    const DSBPOSITIONNOTIFY at[]{{kBytes / 2 - 1, passed}, {kBytes - 1, passed}};
    EXPECT_EQ(setEvents(*buffer, at), DS_OK);
    std::atomic<int> answered{0};
    std::deque<GameThread> threads;
    for (int i = 0; i < 2; ++i) {
        threads.emplace_back([&] {
            const HANDLE both[]{passed, end};
            while (WaitForMultipleObjects(2, both, FALSE, INFINITE) == WAIT_OBJECT_0) {
                for (int spin = 0; spin < 1000; ++spin) std::atomic_signal_fence(std::memory_order_seq_cst);
                ++answered;
            }
        });
    }
    buffer->Play(0, 0, DSBPLAY_LOOPING);
    for (int round = 1; round <= 100; ++round) {
        HandMixedCard::play(1000);  // one round of the buffer: both events, one of them in the middle of the call
        ASSERT_EQ(answered, 2 * round);
    }
    EXPECT_EQ(controls.notifications(), 200U);
    SetEvent(end);
    threads.clear();
    HandMixedCard::play(1000);  // nobody is left to answer, and nobody is waited for
    EXPECT_EQ(WaitForSingleObject(passed, 0), WAIT_OBJECT_0);
    EXPECT_EQ(answered, 200);
    CloseHandle(passed);
    CloseHandle(end);
    HandMixedCard::play(1000);  // an event that is gone disturbs nothing
    EXPECT_EQ(controls.notifications(), 202U);
}

TEST(Cursors, StopStayAndEndAtTheStart) {
    const HandMixedCard card;
    const auto buffer = card.silence(waveFormat(1, 16, 44'100), 2000);
    buffer->Play(0, 0, 0);
    HandMixedCard::play(300);
    EXPECT_EQ(positionOf(*buffer), 600U);
    buffer->Stop();
    HandMixedCard::play(300);
    EXPECT_EQ(positionOf(*buffer), 600U) << "stopped";
    EXPECT_EQ(statusOf(*buffer), 0U);
    buffer->Play(0, 0, 0);
    HandMixedCard::play(699);
    EXPECT_EQ(positionOf(*buffer), 1998U);
    EXPECT_EQ(statusOf(*buffer), DSBSTATUS_PLAYING);
    HandMixedCard::play(1);
    EXPECT_EQ(positionOf(*buffer), 0U) << "ended";
    EXPECT_EQ(statusOf(*buffer), 0U);
    EXPECT_EQ(buffer->SetCurrentPosition(1001), DS_OK);
    EXPECT_EQ(positionOf(*buffer), 1000U) << "whole frames";
    buffer->Play(0, 0, DSBPLAY_LOOPING);
    EXPECT_EQ(statusOf(*buffer), DSBSTATUS_PLAYING | DSBSTATUS_LOOPING);
    HandMixedCard::play(600);
    EXPECT_EQ(positionOf(*buffer), 200U);
    buffer->Play(0, 0, 0);
    EXPECT_EQ(positionOf(*buffer), 200U) << "playing on, and no longer round";
    HandMixedCard::play(1000);
    EXPECT_EQ(statusOf(*buffer), 0U);
}

TEST(Cursors, TellWhereItIsSafeToWrite) {
    const HandMixedCard card;
    const auto buffer = card.silence(waveFormat(2, 16, 44'100), 8000);
    DWORD play = 1;
    DWORD write = 1;
    EXPECT_EQ(buffer->GetCurrentPosition(&play, &write), DS_OK);
    EXPECT_EQ(play, 0U);
    EXPECT_EQ(write, 0U);
    buffer->Play(0, 0, DSBPLAY_LOOPING);
    HandMixedCard::play(1500);
    EXPECT_EQ(buffer->GetCurrentPosition(&play, &write), DS_OK);
    EXPECT_EQ(play, 6000U);
    EXPECT_EQ(write, (6000 + 4 * 882) % 8000U) << "20 ms on, across the end";
    EXPECT_EQ(buffer->GetCurrentPosition(nullptr, nullptr), DS_OK);
}

}  // namespace
