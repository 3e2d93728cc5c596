#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <tuple>

#include "dsound/sound_mixer.h"
#include "hand_mixed_card.h"
#include "tone.h"

// What comes out of the mixer, measured.
namespace {

using platform::SampleMemory;
using platform::SoundMixer;
using platform::SoundVoice;

constexpr double kConcertA = 440;
constexpr double kPure = -80;  // decibels

/// A voice of a mixer of any rate, with `samples` in its memory.
struct MixedVoice {
    MixedVoice(DWORD from, DWORD to, std::span<const std::int16_t> samples)
        : mixer(to), voice(memoryOf(from, samples), mixer.filterFrom(from)) {
        mixer.add(voice);
    }
    static std::shared_ptr<SampleMemory> memoryOf(DWORD rate, std::span<const std::int16_t> samples) {
        auto memory = std::make_shared<SampleMemory>(platform::SampleFormat{rate, 1, 16}, samples.size_bytes());
        std::ranges::copy(bytesOf(samples), memory->bytes().begin());
        return memory;
    }
    /// The left side of the next frames, without the first `skipped`, in blocks of `block`.
    std::vector<float> left(std::size_t skipped, std::size_t frames, std::size_t block = 441) {
        std::vector<float> stereo(2 * (skipped + frames));
        for (std::size_t at = 0; at < stereo.size(); at += 2 * block) {
            mixer.mix(std::span(stereo).subspan(at, std::min(2 * block, stereo.size() - at)));
        }
        std::vector<float> side;
        for (std::size_t i = skipped; i < skipped + frames; ++i) side.push_back(stereo[2 * i]);
        return side;
    }

    SoundMixer mixer;
    SoundVoice voice;
};

class ResampledTone : public testing::TestWithParam<std::tuple<DWORD, DWORD>> {};

TEST_P(ResampledTone, KeepsItsPitchItsLevelAndItsPurity) {
    const auto [from, to] = GetParam();
    MixedVoice mixed(from, to, tone(kConcertA, from, from + from / 4));
    mixed.voice.play(false);
    const auto second = mixed.left(to / 10, to);
    const FoundTone found = findTone(second, kConcertA, to);
    EXPECT_LT(found.residual, kPure);
    EXPECT_NEAR(found.amplitude, 0.5, 0.0002);
    EXPECT_NEAR(found.phase, 0, 0.0005) << "it begins neither early nor late";
}

TEST_P(ResampledTone, GoesRoundWithoutASeam) {
    const auto [from, to] = GetParam();
    const double hertz = from / 25.0;  // a frame is a 25th of a period
    MixedVoice mixed(from, to, tone(hertz, from, 1000));
    mixed.voice.play(true);
    EXPECT_LT(findTone(mixed.left(to / 10, to), hertz, to).residual, kPure);
}

INSTANTIATE_TEST_SUITE_P(Rates, ResampledTone,
                         testing::Combine(testing::Values(8000U, 11'025U, 22'050U, 44'100U, 48'000U, 96'000U),
                                          testing::Values(44'100U, 48'000U)),
                         [](const auto& rates) {
                             return std::to_string(std::get<0>(rates.param)) + "To" +
                                    std::to_string(std::get<1>(rates.param));
                         });

TEST(Resampling, LeavesNothingOfWhatTheCardCannotPlay) {
    // 30 kHz do not exist at 44,100 Hz; without the filter they would come back as 14.1 kHz.
    MixedVoice mixed(96'000, 44'100, tone(30'000, 96'000, 96'000));
    mixed.voice.play(false);
    const auto heard = mixed.left(4410, 22'050);
    EXPECT_LT(*std::ranges::max_element(heard), 0.00003F);
}

TEST(Resampling, NeedsNoCommonDivisor) {
    MixedVoice mixed(44'101, 48'000, tone(kConcertA, 44'101, 60'000));
    mixed.voice.play(false);
    EXPECT_LT(findTone(mixed.left(4800, 48'000), kConcertA, 48'000).residual, kPure);
}

TEST(Resampling, DoesNotDependOnTheSizeOfTheBlocks) {
    const auto samples = tone(1234.5, 22'050, 5000);
    std::vector<float> whole;
    for (const std::size_t block : {4096U, 1U, 7U, 255U, 257U, 1000U}) {
        MixedVoice mixed(22'050, 48'000, samples);
        mixed.voice.play(true);
        const auto heard = mixed.left(0, 30'000, block);
        if (whole.empty()) whole = heard;
        EXPECT_EQ(heard, whole) << block;
    }
}

TEST(Resampling, LastsAsLongAsTheSound) {
    struct Row {
        DWORD from;
        std::size_t frames, heard;  // heard at 44,100
    };
    for (const auto& row : {Row{44'100, 1000, 1000}, Row{22'050, 1000, 2000}, Row{11'025, 1, 4}, Row{48'000, 480, 441},
                            Row{48'000, 481, 442}, Row{96'000, 1, 1}}) {
        MixedVoice mixed(row.from, 44'100, std::vector<std::int16_t>(row.frames, 1000));
        mixed.voice.play(false);
        mixed.left(0, row.heard - 1, 64);
        EXPECT_TRUE(mixed.voice.playing()) << row.from << " " << row.frames;
        mixed.left(0, 1);
        EXPECT_FALSE(mixed.voice.playing()) << row.from << " " << row.frames;
        EXPECT_EQ(mixed.left(0, 100), std::vector<float>(100)) << row.from << " " << row.frames;
    }
}

/// Refills the half that has just been played, the way a stream does, with a tone that goes on.
class ToneStream {
public:
    ToneStream(const HandMixedCard& card, DWORD rate, double hertz)
        : samples_(tone(hertz, rate, std::size_t{3} * rate)),
          buffer_(card.silence(waveFormat(1, 16, rate), 2 * kHalf)) {
        const DSBPOSITIONNOTIFY at[]{{kHalf - 1, played_[0]}, {2 * kHalf - 1, played_[1]}};
        EXPECT_EQ(setEvents(*buffer_, at), DS_OK);
        refill(0);
        refill(1);
        EXPECT_EQ(buffer_->Play(0, 0, DSBPLAY_LOOPING), DS_OK);
    }
    ~ToneStream() {
        for (const HANDLE event : played_) CloseHandle(event);
    }
    ToneStream(const ToneStream&) = delete;
    ToneStream& operator=(const ToneStream&) = delete;

    void refillPlayed() {
        for (DWORD half : {0U, 1U}) {
            if (WaitForSingleObject(played_[half], 0) == WAIT_OBJECT_0) refill(half);
        }
    }

private:
    static constexpr DWORD kHalf = 4096;

    void refill(DWORD half) {
        const auto next = std::span(samples_).subspan(given_, kHalf / 2);
        EXPECT_EQ(store(*buffer_, half * kHalf, bytesOf(next)), DS_OK);
        given_ += kHalf / 2;
    }

    std::vector<std::int16_t> samples_;
    std::size_t given_ = 0;
    BufferRef buffer_;
    HANDLE played_[2]{CreateEventA(nullptr, FALSE, FALSE, nullptr), CreateEventA(nullptr, FALSE, FALSE, nullptr)};
};

TEST(Streaming, JoinsRefilledHalvesWithoutASeam) {
    for (const DWORD rate : {11'025U, 22'050U, 44'100U, 48'000U}) {
        const HandMixedCard card;
        ToneStream stream(card, rate, 441);
        std::vector<std::int16_t> heard;
        while (heard.size() < 176'400) {
            const auto block = HandMixedCard::play(100);
            heard.insert(heard.end(), block.begin(), block.end());
            stream.refillPlayed();
        }
        EXPECT_LT(findTone(sideOf(heard, 0, 4410, 44'100), 441, 44'100).residual, kPure) << rate;
    }
}

TEST(Mixing, GivesSamplesOfItsOwnRateBackAsTheyWere) {
    const HandMixedCard card;
    std::vector<std::int16_t> samples(65'536);
    for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<std::int16_t>(i * 40'503);  // each once
    const auto buffer = card.bufferOf(2, 44'100, samples);
    buffer->Play(0, 0, 0);
    EXPECT_EQ(HandMixedCard::play(32'768), samples);
    EXPECT_EQ(HandMixedCard::play(10), std::vector<std::int16_t>(20));
}

TEST(Mixing, PlaysEveryFormat) {
    const std::vector<std::int16_t> stereo{256, -512, 1024, -2048};
    struct Row {
        const char* what;
        WAVEFORMATEX format;
        std::vector<BYTE> stored;
        std::vector<std::int16_t> heard;
    };
    const Row rows[]{
        {"8 bits, mono",
         waveFormat(1, 8, 44'100),
         {0x80, 0x81, 0x00, 0xFF},
         {0, 0, 256, 256, -32768, -32768, 32512, 32512}},
        {"8 bits, stereo", waveFormat(2, 8, 44'100), {0x80, 0x81, 0x7F, 0x90}, {0, 256, -256, 4096}},
        {"16 bits, mono", waveFormat(1, 16, 44'100), bytesOf(stereo), {256, 256, -512, -512, 1024, 1024, -2048, -2048}},
        {"16 bits, stereo", waveFormat(2, 16, 44'100), bytesOf(stereo), stereo},
        {"a piece of a frame at the end", waveFormat(2, 16, 44'100), {0, 1, 0, 2, 0, 3}, {256, 512, 0, 0}},
    };
    for (const Row& row : rows) {
        const HandMixedCard card;
        const auto buffer = card.bufferOf(row.format, row.stored);
        buffer->Play(0, 0, 0);
        EXPECT_EQ(HandMixedCard::play(row.heard.size() / 2), row.heard) << row.what;
    }
}

TEST(Mixing, TakesVolumeAndPanInHundredthsOfADecibel) {
    struct Row {
        LONG volume, pan;
        double left, right;  // decibels; -100 for silence
    };
    constexpr double kStored = 0.9;
    const HandMixedCard card;
    const auto buffer = card.bufferOf(1, 44'100, tone(441, 44'100, 44'100, kStored));
    const auto levelOf = [](const std::vector<std::int16_t>& heard, std::size_t side) {
        const FoundTone found = findTone(sideOf(heard, side, 0, 4400), 441, 44'100);
        return found.amplitude == 0 ? -100 : 20 * std::log10(found.amplitude / kStored);
    };
    for (const auto& row : {
             Row{0, 0, 0, 0},
             Row{-100, 0, -1, -1},
             Row{-600, 0, -6, -6},
             Row{-4300, 0, -43, -43},
             Row{-10'000, 0, -100, -100},
             Row{0, 2000, -20, 0},
             Row{0, -2000, 0, -20},
             Row{-600, 1000, -16, -6},
             Row{0, 10'000, -100, 0},
             Row{0, -10'000, 0, -100},
             Row{-10'000, -10'000, -100, -100},
         }) {
        EXPECT_EQ(buffer->SetVolume(row.volume), DS_OK);
        EXPECT_EQ(buffer->SetPan(row.pan), DS_OK);
        EXPECT_EQ(buffer->SetCurrentPosition(0), DS_OK);
        EXPECT_EQ(buffer->Play(0, 0, DSBPLAY_LOOPING), DS_OK);
        const auto heard = HandMixedCard::play(4400);
        EXPECT_NEAR(levelOf(heard, 0), row.left, 0.02) << row.volume << " " << row.pan;
        EXPECT_NEAR(levelOf(heard, 1), row.right, 0.02) << row.volume << " " << row.pan;
    }
}

TEST(Mixing, AddsUpAndTurnsDownWhatWouldBeTooLoud) {
    const HandMixedCard card;
    const auto samples = tone(441, 44'100, 44'100, 0.9);
    std::array<BufferRef, 3> buffers;
    for (auto& buffer : buffers) buffer = card.bufferOf(1, 44'100, samples);
    buffers[0]->SetVolume(-1000);
    buffers[1]->SetVolume(-1000);
    buffers[0]->Play(0, 0, DSBPLAY_LOOPING);
    buffers[1]->Play(0, 0, DSBPLAY_LOOPING);
    const FoundTone quiet = findTone(sideOf(HandMixedCard::play(44'100), 0, 0, 44'100), 441, 44'100);
    EXPECT_NEAR(quiet.amplitude, 2 * 0.9 * std::pow(10, -0.5), 0.0001) << "two sounds, and nothing changes them";
    EXPECT_LT(quiet.residual, kPure);

    for (const auto& buffer : buffers) buffer->SetVolume(0), buffer->Play(0, 0, DSBPLAY_LOOPING);
    const auto loud = HandMixedCard::play(44'100);
    const FoundTone turnedDown = findTone(sideOf(loud, 0, 4410, 4400), 441, 44'100);
    EXPECT_GT(turnedDown.amplitude, 0.97);
    EXPECT_LT(turnedDown.residual, -40) << "cutting the tops off would leave far more than this";

    buffers[1]->Stop();
    buffers[2]->Stop();
    HandMixedCard::play(220'500);
    const FoundTone after = findTone(sideOf(HandMixedCard::play(44'100), 0, 0, 44'100), 441, 44'100);
    EXPECT_NEAR(after.amplitude, 0.9, 0.0001) << "the loud passage is forgotten";
    EXPECT_LT(after.residual, kPure);
}

}  // namespace
