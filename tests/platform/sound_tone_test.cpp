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

TEST(Mixing, TakesVolumeAndPanInHundredthsOfADecibel) {
    struct Row {
        LONG volume, pan;
        double left, right;  // decibels; -100 for silence
    };
    constexpr float kStored = 0.9F;
    const OpenedCard card;
    const auto buffer = card.bufferOf(44'100, tone(441, 44'100, 44'100, kStored));
    const auto levelOf = [](const Samples& heard, std::size_t side) {
        const FoundTone found = findTone(sideOf(heard, side, 0, 4400), 441, 44'100);
        return found.amplitude == 0 ? -100 : 20 * std::log10(found.amplitude / kStored);
    };
    for (const auto& row : {
             Row{0, 0, 0, 0},
             Row{-600, 0, -6, -6},
             Row{-4300, 0, -43, -43},
             Row{-10'000, 0, -100, -100},
             Row{0, 2000, -20, 0},
             Row{0, -2000, 0, -20},
             Row{-600, 1000, -16, -6},
             Row{0, 10'000, -100, 0},
             Row{0, -10'000, 0, -100},
         }) {
        SCOPED_TRACE(testing::Message() << "volume " << row.volume << ", pan " << row.pan);
        buffer->SetVolume(row.volume);
        buffer->SetPan(row.pan);
        buffer->Play(0, 0, DSBPLAY_LOOPING);
        const auto heard = OpenedCard::play(4400);
        EXPECT_NEAR(levelOf(heard, 0), row.left, 0.02);
        EXPECT_NEAR(levelOf(heard, 1), row.right, 0.02);
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
