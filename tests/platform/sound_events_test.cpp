#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "dsound/sound_mixer.h"

// Cursors and position events follow the frames that were mixed.
namespace {

using platform::FrameEvent;
using platform::SampleFormat;
using platform::SampleMemory;
using platform::SoundMixer;
using platform::SoundVoice;

/// Events are told apart by number; no handle is behind it.
HANDLE eventNumber(std::size_t number) { return reinterpret_cast<HANDLE>(number); }

/// Mixes one block after the other at the voice's own rate. Returns for each block the numbers of the events and where
/// the cursor stood then, with a point when the voice has stopped: "1 2 >0, >30."
std::string mixBlocks(SoundVoice& voice, SoundMixer& mixer, const std::vector<std::size_t>& blocks) {
    std::string passed;
    for (const std::size_t frames : blocks) {
        std::vector<float> stereo(2 * frames);
        mixer.mix(stereo);
        if (!passed.empty()) passed += ", ";
        const platform::RaisedEvents raised = mixer.takeRaised();
        for (const HANDLE event : raised.all()) passed += std::to_string(reinterpret_cast<std::size_t>(event)) + " ";
        passed += ">" + std::to_string(voice.cursor()) + (voice.playing() ? "" : ".");
    }
    return passed;
}

TEST(PositionEvents, AreRaisedOncePerPassOfTheCursorInItsOrder) {
    struct Row {
        const char* what;
        bool looping;
        std::size_t start;
        std::vector<std::size_t> events;  // frames of 100; their numbers count from 1
        std::vector<std::size_t> blocks;
        const char* passed;
    };
    const Row rows[]{
        {"a block ends on the frame before", true, 0, {49}, {49, 1}, ">49, 1 >50"},
        {"a block ends behind it", true, 0, {49}, {50, 99, 1}, "1 >50, >49, 1 >50"},
        {"both halves in one block", true, 0, {49, 99}, {100, 30}, "1 2 >0, >30"},
        {"written down in the wrong order", true, 0, {99, 49}, {100}, "2 1 >0"},
        {"across the wrap", true, 90, {49, 99}, {60, 60}, "2 1 >50, 2 >10"},
        {"a block of several rounds", true, 20, {49, 99}, {250}, "1 2 1 2 1 >70"},
        {"first and last frame", true, 0, {0, 99}, {1, 98, 1, 1}, "1 >1, >99, 2 >0, 1 >1"},
        {"two on one frame", true, 0, {10, 10}, {20}, "1 2 >20"},
        {"without a loop the end stops it", false, 0, {49, 99}, {60, 60, 60}, "1 >60, 2 >0., >0."},
        {"those before the start stay silent", false, 60, {49, 59}, {100}, ">0."},
    };
    for (const Row& row : rows) {
        SoundMixer mixer(44'100);
        SoundVoice voice(std::make_shared<SampleMemory>(SampleFormat{44'100, 2, 16}, 400), nullptr);
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
    SoundVoice voice(std::make_shared<SampleMemory>(SampleFormat{8000, 1, 16}, 2000), mixer.filterFrom(8000));
    mixer.add(voice);
    voice.setEvents({{499, eventNumber(1)}, {999, eventNumber(2)}});
    voice.play(true);
    // Six samples of the card are one frame.
    EXPECT_EQ(mixBlocks(voice, mixer, {2999, 1, 2999, 1, 2994, 6}), ">499, 1 >500, >999, 2 >0, >499, 1 >500");
}

}  // namespace
