#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "limiter.h"
#include "measure.h"
#include "score_source.h"
#include "sound_keys.h"
#include "sound_package.h"
#include "vorbis_file.h"

namespace grub {
namespace {

/// The largest step from one sample to the next inside a channel.
double largestStep(const Samples& channel) {
    double largest = 0;
    for (std::size_t i = 1; i < channel.size(); ++i) largest = std::max(largest, std::abs(channel[i] - channel[i - 1]));
    return largest;
}

TEST(MusicTracks, AreStereoVorbisLoudAndWithinOneLoudnessUnit) {
    SoundPackage package;
    for (const char* key : kMusicKeys) {
        const auto file = package.file("music", key);
        ASSERT_GT(file.size(), 4U) << key;
        EXPECT_EQ(std::string(file.begin(), file.begin() + 4), "OggS") << key;
        const SoundRecording sound = package.recording("music", key);
        EXPECT_EQ(sound.rate, 44100) << key;
        EXPECT_EQ(sound.channels.size(), 2U) << key;
        const SoundMeasures measures = measureSound(sound);
        EXPECT_GE(measures.duration, 30) << key;
        EXPECT_NEAR(measures.integrated, -11, 0.5) << key;
        EXPECT_LE(measures.peak, -1.5) << key;
        EXPECT_GE(measures.heard, 0.5) << key;
    }
}

/// What the encoder's noise may do. Drums make larger steps than this all the time, but here the track before the first
/// beat dies away; one whose first samples are missing has 0.02 and more at its seam.
constexpr double kUnheardStep = 0.015;

TEST(MusicTracks, JoinTheirEndToTheirStartWithoutAClick) {
    SoundPackage package;
    for (const char* key : kMusicKeys) {
        const SoundRecording sound = package.recording("music", key);
        for (const Samples& channel : sound.channels) {
            const double step = std::abs(channel.front() - channel.back());
            EXPECT_LE(step, largestStep(channel)) << key;
            EXPECT_LT(step, kUnheardStep) << key;
        }
    }
}

constexpr const char* kSmallScore =
    "tempo 120\nloudness -14\nform A\ninstrument reed\n  tone\n    partials 1\nphrase A\n  reed A4 . C5 .\n";

std::optional<Score> scoreOf(const std::string& text) {
    TextError error;
    auto score = readScore(text, error);
    EXPECT_TRUE(score) << error.line << ": " << error.message;
    return score;
}

TEST(ScoreFormat, SmallestScoreRenders) {
    const auto score = scoreOf(kSmallScore);
    ASSERT_TRUE(score);
    const auto sound = renderScore(*score);
    ASSERT_EQ(sound.size(), 2U);
    EXPECT_EQ(sound[0].size(), 2U * 44100U);                         // four beats
    EXPECT_NEAR(measureSound({kMusicRate, sound}).loudest, -11, 2);  // half of it is rests
    EXPECT_EQ(renderScore(*score), sound);
}

TEST(ScoreRendering, WhatRingsBehindTheEndIsInTheStart) {
    const std::string text =
        "tempo 60\nloudness -20\nform A\ninstrument bell\n  modes\n    mode 1 0 0.5\n    release 1\nphrase A\n  bell "
        ".:3 A4:1 |\n";
    const auto score = scoreOf(text);
    ASSERT_TRUE(score);
    const Samples left = renderScore(*score)[0];
    const auto loudOver = [&](std::size_t from) { return peakOf(std::span(left).subspan(from, 2000)); };
    EXPECT_GT(loudOver(0), 0.05 * peakOf(left));
    EXPECT_GT(loudOver(0), 2 * loudOver(22050));
    EXPECT_LE(std::abs(left.front() - left.back()), largestStep(left));
}

TEST(ScoreRendering, ChordsAccentsAndPhrasesStandWhereTheyAreWritten) {
    const auto score = scoreOf(
        "tempo 60\nbar 2\nloudness -14\nform A B A\n"
        "instrument reed\n  tone\n    partials 1\n"
        "phrase A\n  reed A4+E5! .:1 |\nphrase B\n  reed .:.5 C4 .:1 |\n  reed .:2 |\n");
    ASSERT_TRUE(score);
    EXPECT_EQ(score->form, (std::vector<std::size_t>{0, 1, 0}));
    EXPECT_DOUBLE_EQ(score->beats(), 8);
    const auto& chord = score->phrases[0].voices[0].notes;
    ASSERT_EQ(chord.size(), 2U);
    EXPECT_EQ(chord[0].beat, chord[1].beat);
    EXPECT_GT(chord[1].gain, chord[0].gain - 1e-9);
    EXPECT_NEAR(chord[0].pitch, 440, 0.01);
    EXPECT_DOUBLE_EQ(score->phrases[1].voices[0].notes[0].beat, 0.5);
    EXPECT_DOUBLE_EQ(score->phrases[1].voices[0].notes[0].beats, 0.5);
}

TEST(LoopLimiter, HoldsPeaksAndGoesRoundTheSeam) {
    Samples quiet(20000);
    for (std::size_t i = 0; i < quiet.size(); ++i)
        quiet[i] = 0.3 * std::sin(0.01 * std::numbers::pi * static_cast<double>(i));
    std::vector<Samples> loop{quiet, quiet};
    limitLoop(loop, 0.5, 44100);
    EXPECT_EQ(loop[0], quiet);
    loop[1][0] = 0.9;  // turns down both channels, before the seam as well as behind it
    limitLoop(loop, 0.5, 44100);
    EXPECT_LE(peakOf(loop[1]), 0.5 + 1e-12);
    EXPECT_LT(std::abs(loop[0][150]), std::abs(quiet[150]));
    EXPECT_LT(std::abs(loop[0][19950]), std::abs(quiet[19950]));
    EXPECT_NEAR(loop[0][10050], quiet[10050], 1e-12);
}

TEST(VorbisFile, GivesBackAllSamplesAndTheSameBytes) {
    Samples tone(30011);
    for (std::size_t i = 0; i < tone.size(); ++i)
        tone[i] = 0.5 * std::sin(kTwoPi * 440 * static_cast<double>(i) / 44100);
    const auto file = vorbisBytes({tone, tone}, kMusicRate);
    const auto again = decodeSound(file);
    ASSERT_TRUE(again);
    ASSERT_EQ(again->channels.size(), 2U);
    ASSERT_EQ(again->channels[1].size(), tone.size());
    double worst = 0;
    for (std::size_t i = 0; i < tone.size(); ++i) worst = std::max(worst, std::abs(tone[i] - again->channels[1][i]));
    EXPECT_LT(worst, 0.03);
    EXPECT_EQ(vorbisBytes({tone, tone}, kMusicRate), file);
    EXPECT_TRUE(vorbisBytes({}, kMusicRate).empty());
    EXPECT_TRUE(vorbisBytes({tone}, 0).empty());
}

}  // namespace
}  // namespace grub
