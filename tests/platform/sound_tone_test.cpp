#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "dsound/sound_mixer.h"
#include "opened_card.h"
#include "tone.h"

// What comes out of the mixer, measured.
namespace {

using grub::findTone;
using grub::FoundTone;
using grub::sampleBytes;
using grub::sideOf;
using grub::tone;
using platform::SampleMemory;
using platform::SoundMixer;
using platform::SoundVoice;

constexpr double kPure = -80;  // decibels

/// A voice of a mixer of any rate, with `samples` in its memory.
struct MixedVoice {
    MixedVoice(DWORD from, DWORD to, std::span<const std::int16_t> samples)
        : mixer(to), voice(memoryOf(from, samples), mixer.filterFrom(from)) {
        mixer.add(voice);
    }
    static std::shared_ptr<SampleMemory> memoryOf(DWORD rate, std::span<const std::int16_t> samples) {
        auto memory = std::make_shared<SampleMemory>(platform::SampleFormat{rate, 1, 16}, samples.size_bytes());
        std::ranges::copy(sampleBytes(samples), memory->bytes().begin());
        return memory;
    }
    /// The left side of the next frames, without the first `skipped`, in blocks of a size that divides nothing.
    std::vector<float> left(std::size_t skipped, std::size_t frames) {
        constexpr std::size_t kBlock = 443;
        std::vector<float> side;
        for (std::size_t at = 0; at < skipped + frames; at += kBlock) {
            std::vector<float> stereo(2 * std::min(kBlock, skipped + frames - at));
            mixer.mix(stereo);
            for (std::size_t i = 0; i < stereo.size(); i += 2) side.push_back(stereo[i]);
        }
        return {side.begin() + static_cast<std::ptrdiff_t>(skipped), side.end()};
    }

    SoundMixer mixer;
    SoundVoice voice;
};

TEST(Resampling, KeepsPitchLevelAndPurityAndGoesRoundWithoutASeam) {
    struct Row {
        DWORD from, to;
    };
    for (const auto& [from, to] : {Row{8000, 44'100}, Row{11'025, 48'000}, Row{22'050, 44'100}, Row{44'100, 44'100},
                                   Row{44'075, 48'000}, Row{48'000, 44'100}, Row{96'000, 48'000}}) {
        SCOPED_TRACE(testing::Message() << from << " to " << to);
        MixedVoice once(from, to, tone(440, from, from + from / 4));
        once.voice.play(false);
        const FoundTone found = findTone(once.left(to / 10, to), 440, to);
        EXPECT_LT(found.residual, kPure);
        EXPECT_NEAR(found.amplitude, 0.5, 0.0002);
        EXPECT_NEAR(found.phase, 0, 0.0005) << "it begins neither early nor late";

        const double hertz = from / 25.0;  // a frame is a 25th of a period
        MixedVoice looped(from, to, tone(hertz, from, 1000));
        looped.voice.play(true);
        EXPECT_LT(findTone(looped.left(to / 10, to), hertz, to).residual, kPure);
    }
}

TEST(Resampling, LeavesNothingOfWhatTheCardCannotPlay) {
    // 30 kHz do not exist at 44,100 Hz; without the filter they would come back as 14.1 kHz.
    MixedVoice mixed(96'000, 44'100, tone(30'000, 96'000, 96'000));
    mixed.voice.play(false);
    const auto heard = mixed.left(4410, 22'050);
    EXPECT_LT(*std::ranges::max_element(heard), 0.00003F);
}

TEST(Resampling, LastsAsLongAsTheSound) {
    struct Row {
        DWORD from;
        std::size_t frames, heard;  // heard at 44,100
    };
    for (const auto& row : {Row{44'100, 1000, 1000}, Row{22'050, 1000, 2000}, Row{11'025, 1, 4}, Row{48'000, 480, 441},
                            Row{48'000, 481, 442}, Row{96'000, 1, 1}}) {
        MixedVoice mixed(row.from, 44'100, Samples(row.frames, 1000));
        mixed.voice.play(false);
        mixed.left(0, row.heard - 1);
        EXPECT_TRUE(mixed.voice.playing()) << row.from << " " << row.frames;
        mixed.left(0, 1);
        EXPECT_FALSE(mixed.voice.playing()) << row.from << " " << row.frames;
        EXPECT_EQ(mixed.left(0, 100), std::vector<float>(100)) << row.from << " " << row.frames;
    }
}

TEST(Mixing, TurnsDownWhatWouldBeTooLoud) {
    const OpenedCard card;
    std::array<BufferRef, 3> buffers;
    for (auto& buffer : buffers) {
        buffer = card.bufferOf(44'100, tone(441, 44'100, 44'100, 0.9F));
        buffer->Play(0, 0, DSBPLAY_LOOPING);
    }
    const auto heard = [] { return findTone(sideOf(OpenedCard::play(44'100), 0, 0, 44'100), 441, 44'100); };
    OpenedCard::play(4410);
    const FoundTone loud = heard();
    EXPECT_GT(loud.amplitude, 0.97);
    EXPECT_LT(loud.residual, -40) << "cutting the tops off would leave far more than this";
    buffers[1]->Stop();
    buffers[2]->Stop();
    OpenedCard::play(220'500);
    const FoundTone after = heard();
    EXPECT_NEAR(after.amplitude, 0.9, 0.0001) << "the loud passage is forgotten";
    EXPECT_LT(after.residual, kPure);
}

}  // namespace
