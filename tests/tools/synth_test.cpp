// How sounds are rendered and measured, and what their sources may say.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "filters.h"
#include "fourier.h"
#include "measure.h"
#include "run_grubtool.h"
#include "score_source.h"
#include "scratch_directory.h"
#include "sound_file.h"
#include "sound_source.h"

namespace grub {
namespace {

Samples sine(double frequency, double amplitude, double seconds, int rate = kMusicRate) {
    Samples sound(static_cast<std::size_t>(seconds * rate));
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = amplitude * std::sin(kTwoPi * frequency * static_cast<double>(i) / rate);
    return sound;
}

double levelAt(std::span<const double> sound, double frequency) {
    double real = 0;
    double imaginary = 0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double angle = kTwoPi * frequency * static_cast<double>(i) / kMusicRate;
        real += sound[i] * std::cos(angle);
        imaginary += sound[i] * std::sin(angle);
    }
    return std::hypot(real, imaginary) / static_cast<double>(sound.size());
}

// ---- measures

// ITU-R BS.1770: a sine of 997 Hz at full scale in one channel reads -3.01.
TEST(Loudness, IsThatOfTheStandardAtEveryRateWithoutSilence) {
    for (const int rate : {22050, 44100, 48000}) {
        Samples tone = sine(997, 1, 4, rate);
        const std::vector<Samples> both{tone, tone};
        EXPECT_NEAR(integratedLoudness(both, rate), 0, 0.05) << rate;
        tone.resize(3 * tone.size());
        EXPECT_NEAR(loudestMoment({&tone, 1}, rate), -3.01, 0.05) << rate;
        EXPECT_NEAR(integratedLoudness({&tone, 1}, rate), -3.01, 0.3) << rate;
    }
    const Samples shortTone = sine(997, 1, 0.1);  // a quarter of a moment
    EXPECT_NEAR(loudestMoment({&shortTone, 1}, kMusicRate), -9.03, 0.2);
}

// Samples of a quarter of the rate that miss every crest by an eighth of a turn are all 3 dB too low.
TEST(Measures, FindPeaksBetweenSamplesAndWhereTheEnergyLies) {
    Samples sound(4000);
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] =
            std::sin(kTwoPi * (static_cast<double>(i) / 4 + 0.125)) * std::min(1.0, static_cast<double>(i) / 2000);
    EXPECT_NEAR(truePeak(std::span(sound).first(3900)), 1, 0.05);
    EXPECT_NEAR(measureSound({kMusicRate, {sine(2000, 0.5, 1)}}).centroid, 2000, 20);
    EXPECT_GT(measureSound({kMusicRate, {sine(2000, 0.5, 1)}}).heard, 0.99);
    EXPECT_LT(measureSound({kMusicRate, {sine(100, 0.5, 1)}}).heard, 0.01);
}

// ---- rendering

TEST(Fourier, EchoIsTheSumOfDelayedCopies) {
    WhiteNoise noise(1);
    Samples sound(5000);
    for (double& sample : sound) sample = noise.sample();
    Samples response(1500);
    response[0] = 1;
    response[700] = -0.5;
    const Samples echo = convolve(sound, response);
    ASSERT_EQ(echo.size(), 6499U);
    for (std::size_t i = 0; i < sound.size(); ++i)
        ASSERT_NEAR(echo[i], sound[i] - (i < 700 ? 0 : 0.5 * sound[i - 700]), 1e-9) << i;
}

SoundLayer toneOf(double pitch, double length) {
    SoundLayer layer;
    layer.pitch = pitch;
    layer.partials = {1, 0.5, 0.25};
    layer.length = length;
    layer.release = 0.005;
    return layer;
}

TEST(Layers, HavePartialsAtMultiplesOfThePitchAndNoWrongTones) {
    const Samples sound = renderLayer(toneOf(441, 0.5), kMusicRate, 1, 0, 1);
    EXPECT_NEAR(levelAt(sound, 882) / levelAt(sound, 441), 0.5, 0.01);
    EXPECT_NEAR(levelAt(sound, 1323) / levelAt(sound, 441), 0.25, 0.01);
    EXPECT_LT(levelAt(renderLayer(toneOf(9000, 0.5), kMusicRate, 1, 0, 1), 44100 - 27000), 0.001);
}

TEST(Layers, RepeatInTimePitchAndGain) {
    SoundLayer layer = toneOf(441, 0.05);
    layer.hits = {{0, 1, 1}, {0.5, 2, 0.5}};
    const Samples sound = renderLayer(layer, kMusicRate, 1, 0, 1);
    const auto first = std::span(sound).first(2205);
    const auto second = std::span(sound).subspan(22050, 2205);
    EXPECT_GT(levelAt(first, 441), 20 * levelAt(second, 441));
    EXPECT_NEAR(levelAt(second, 882), levelAt(first, 441) / 2, 0.02 * levelAt(first, 441));
    EXPECT_LT(peakOf(std::span(sound).subspan(13230, 4410)), 0.001);
}

TEST(Layers, GlideByEqualIntervals) {
    SoundLayer layer = toneOf(400, 1);
    layer.partials = {1};
    layer.glide = {{0, 1}, {1, 4}};
    const Samples sound = renderLayer(layer, kMusicRate, 1, 0, 1);
    int crossings = 0;  // around half a second, where the pitch is 800 Hz
    for (std::size_t i = 19845; i < 24255; ++i) crossings += sound[i] < 0 && sound[i + 1] >= 0;
    EXPECT_NEAR(crossings, 80, 2);
}

TEST(Loop, IsHeldByTheLimiterAcrossItsSeam) {
    const Samples quiet = sine(220.5, 0.3, 0.45);
    std::vector<Samples> loop{quiet, quiet};
    limitLoop(loop, 0.5, kMusicRate);
    EXPECT_EQ(loop[0], quiet);
    loop[1][0] = 0.9;  // turns down both channels, before the seam as well as behind it
    limitLoop(loop, 0.5, kMusicRate);
    EXPECT_LE(peakOf(loop[1]), 0.5 + 1e-12);
    EXPECT_LT(std::abs(loop[0][150]), std::abs(quiet[150]));
    EXPECT_LT(std::abs(loop[0][19800]), std::abs(quiet[19800]));
    EXPECT_NEAR(loop[0][10050], quiet[10050], 1e-12);
}

TEST(VorbisFile, GivesBackAllSamples) {
    const Samples tone = sine(440, 0.5, 0.68);
    const auto again = decodeSound(vorbisBytes({tone, tone}, kMusicRate));
    ASSERT_TRUE(again);
    ASSERT_EQ(again->channels.size(), 2U);
    ASSERT_EQ(again->channels[1].size(), tone.size());
    for (std::size_t i = 0; i < tone.size(); ++i) ASSERT_NEAR(tone[i], again->channels[1][i], 0.03) << i;
    EXPECT_TRUE(vorbisBytes({tone}, 0).empty());
}

// ---- sources

constexpr const char* kSmallSound = "; a tap\nlength 0.1\nloudness -30\nnoise\n  band 300 3000\n  decay 0.01\n";
constexpr const char* kSmallScore =
    "tempo 120\nloudness -14\nform A\ninstrument reed\n  tone\n    partials 1\nphrase A\n  reed A4 . C5 .\n";

TEST(SoundSourceFormat, SmallestSourceRenders) {
    TextError error;
    const auto source = readSoundSource(kSmallSound, error);
    ASSERT_TRUE(source) << error.message;
    const auto sound = renderSound(*source, error);
    ASSERT_TRUE(sound) << error.message;
    EXPECT_EQ(sound->size(), 4410U);
    EXPECT_NEAR(measureSound({kMusicRate, {*sound}}).loudest, -30, 0.1);
}

TEST(SoundSourceFormat, RefusesASoundThatItsLoudnessWouldClip) {
    TextError error;
    const auto source = readSoundSource("length 0.1\nloudness -3\nnoise\n  band 300 3000\n  decay 0.001\n", error);
    ASSERT_TRUE(source) << error.message;
    EXPECT_FALSE(renderSound(*source, error));
    EXPECT_THAT(error.message, testing::HasSubstr("-1.5 dB"));
}

TEST(ScoreFormat, SmallestScoreRenders) {
    TextError error;
    const auto score = readScore(kSmallScore, error);
    ASSERT_TRUE(score) << error.message;
    const auto sound = renderScore(*score);
    ASSERT_EQ(sound.size(), 2U);
    EXPECT_EQ(sound[0].size(), 2U * 44100U);                         // four beats
    EXPECT_NEAR(measureSound({kMusicRate, sound}).loudest, -11, 2);  // half of it is rests
}

TEST(ScoreFormat, ReadsChordsAccentsAndPhrases) {
    TextError error;
    const auto score = readScore(
        "tempo 60\nbar 2\nloudness -14\nform A B A\n"
        "instrument reed\n  tone\n    partials 1\n"
        "phrase A\n  reed A4+E5! .:1 |\nphrase B\n  reed .:.5 Bb4 .:1 |\n  reed .:2 |\n",
        error);
    ASSERT_TRUE(score) << error.message;
    EXPECT_EQ(score->form, (std::vector<std::size_t>{0, 1, 0}));
    EXPECT_DOUBLE_EQ(score->beats(), 8);
    const auto& chord = score->phrases[0].voices[0].notes;
    ASSERT_EQ(chord.size(), 2U);
    EXPECT_EQ(chord[0].beat, chord[1].beat);
    EXPECT_DOUBLE_EQ(chord[1].gain, 1.5);
    EXPECT_NEAR(chord[0].pitch, 440, 0.01);
    EXPECT_NEAR(score->phrases[1].voices[0].notes[0].pitch, 466.164, 0.001) << "a semitone above A4";
    EXPECT_DOUBLE_EQ(score->phrases[1].voices[0].notes[0].beat, 0.5);
    EXPECT_DOUBLE_EQ(score->phrases[1].voices[0].notes[0].beats, 0.5);
}

TEST(ScoreFormat, WhatRingsBehindTheEndIsInTheStart) {
    TextError error;
    const auto score = readScore(
        "tempo 60\nloudness -20\nform A\ninstrument bell\n  modes\n    mode 1 0 0.5\n    release 1\n"
        "phrase A\n  bell .:3 A4:1 |\n",
        error);
    ASSERT_TRUE(score) << error.message;
    const Samples left = renderScore(*score)[0];
    const auto loudOver = [&](std::size_t from) { return peakOf(std::span(left).subspan(from, 2000)); };
    EXPECT_GT(loudOver(0), 0.05 * peakOf(left));
    EXPECT_GT(loudOver(0), 2 * loudOver(22050));
}

struct SourceFault {
    const char* what;
    const char* text;
    int line;
    const char* message;  // part of it
};

constexpr SourceFault kSoundFaults[] = {
    {"nothing", "", 0, "a length, a loudness and a layer"},
    {"an unknown key of the head", "lenght 1\n", 1, "a key of the head or a layer, found 'lenght'"},
    {"a head key with two values", "length 1 2\n", 1, "one value, found '2'"},
    {"a number with a tail", "length 1s\n", 1, "a number from 0.01 to 10, found '1s'"},
    {"no finite number", "length inf\n", 1, "found 'inf'"},
    {"a kind with a name", "noise tap\n", 1, "nothing behind a layer's kind, found 'tap'"},
    {"a head key in a layer", "tone\nlength 0.1\nloudness -20\n", 3, "a key of a layer, found 'loudness'"},
    {"a layer key without a value", "tone\npartials\n", 2, "a value behind the key"},
    {"a band upside down", "noise\nband 500 400\n", 2, "a band that ends above its start, found '400'"},
    {"a mode without a decay", "modes\nmode 1 0\n", 2, "'mode RATIO GAIN DECAY'"},
    {"a glide back in time", "tone\nglide 0:1 0.2:2 0.1:1\n", 2, "a later time than the one before, found '0.1:1'"},
    {"a glide without a colon", "tone\nglide 1\n", 2, "TIME:FACTOR"},
    {"a note that does not exist", "tone\npitch H4\n", 2, "a note or a number of Hz from 1 to 20000, found 'H4'"},
    {"a pitch behind a hit", "tone\nhit 0 A4\npitch A3\n", 3, "the pitch before the first hit"},
    {"a hit with too much", "tone\nhit 0 A4 -3 4\n", 2, "'hit TIME [PITCH [GAIN]]', found '4'"},
    {"a noise without a band", "; a line\nlength 1\nloudness -20\n\nnoise\ndecay 1\n", 5, "a band"},
    {"a layer that never ends", "length 1\nloudness -20\ntone\npartials 1\ndecay 1\nsustain .5\n", 3, "a length"},
};

constexpr SourceFault kScoreFaults[] = {
    {"nothing", "", 0, "a tempo, a loudness and a form"},
    {"an unknown head key", "tempi 100\n", 1, "a key of the head, an instrument or a phrase, found 'tempi'"},
    {"an instrument without a name", "instrument\n", 1, "one name"},
    {"an instrument twice", "instrument a\ninstrument a\n", 2, "each instrument once"},
    {"a key before the first layer", "instrument a\ngain 3\n", 2, "a layer, found 'gain'"},
    {"a voice of an unknown instrument", "phrase A\nflute A4\n", 2, "an instrument, found 'flute'"},
    {"half a chord", "instrument a\nphrase A\na A4+\n", 3, "a note, x, . or |, found ''"},
    {"a note of no length", "instrument a\nphrase A\na A4:0\n", 3, "a number from 0.05 to 64, found '0'"},
    {"a bar too early", "instrument a\nphrase A\na A4:3.5 | A4\n", 3, "the end of a bar, found '| after 3.50 beats'"},
    {"an instrument without layers", "tempo 90\nloudness -9\nform A\ninstrument a\n", 4, "a layer"},
    {"an empty phrase", "tempo 90\nloudness -9\nform A\nphrase A\n", 4, "a voice"},
    {"voices of different length",
     "tempo 90\nloudness -9\nform A\ninstrument a\ntone\npartials 1\ninstrument b\ntone\npartials 1\n"
     "phrase A\na A4:4\nb A4:3\n",
     10, "4.00 beats of b, found '3.00 beats'"},
    {"a form with an unknown phrase",
     "tempo 90\nloudness -9\nform A B\ninstrument a\ntone\npartials 1\nphrase A\na A4:4\n", 3, "a phrase, found 'B'"},
};

template <class Read>
void expectFaults(std::span<const SourceFault> faults, Read read) {
    for (const SourceFault& fault : faults) {
        SCOPED_TRACE(fault.what);
        TextError error{-1, "no error"};
        EXPECT_FALSE(read(fault.text, error));
        EXPECT_EQ(error.line, fault.line);
        EXPECT_THAT(error.message, testing::HasSubstr(fault.message));
    }
}

TEST(SourceFormats, NameTheLineThatTheyDoNotUnderstand) {
    expectFaults(kSoundFaults, [](const char* text, TextError& error) { return readSoundSource(text, error); });
    expectFaults(kScoreFaults, [](const char* text, TextError& error) { return readScore(text, error); });
}

TEST(SoundCommands, RenderMeasureDrawAndNameWhatTheyRefuse) {
    ScratchDirectory scratch;
    const auto written = [&](const char* name, std::string_view text) {
        return scratch.write(name, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    };
    const std::string source = written("tap.txt", kSmallSound);
    const std::string bad = written("bad.txt", "length 1\nloud 3\n");
    const std::string wav = scratch.file("a.wav");
    ASSERT_EQ(runGrubtool({"sound", "render", source, wav}), 0);
    ASSERT_EQ(runGrubtool({"sound", "render", source, scratch.file("b.wav")}), 0);
    EXPECT_EQ(scratch.read("a.wav"), scratch.read("b.wav"));
    ASSERT_EQ(runGrubtool({"sound", "sheet", scratch.file("sheet.png"), wav, wav}), 0);
    EXPECT_GT(scratch.read("sheet.png").size(), 1000U);
    testing::internal::CaptureStdout();
    ASSERT_EQ(runGrubtool({"sound", "measure", wav}), 0);
    EXPECT_THAT(testing::internal::GetCapturedStdout(),
                testing::AllOf(testing::HasSubstr("  0.10 s"), testing::HasSubstr("loudest  -30.0 LUFS")));
    testing::internal::CaptureStderr();
    EXPECT_EQ(runGrubtool({"sound", "render", bad, scratch.file("c.wav")}), 1);
    EXPECT_EQ(runGrubtool({"music", "render", bad, scratch.file("c.ogg")}), 1);
    EXPECT_EQ(runGrubtool({"sound", "measure", bad}), 1);
    const std::string complaints = testing::internal::GetCapturedStderr();
    EXPECT_THAT(complaints, testing::HasSubstr(bad + ":2: wanted a key of the head or a layer, found 'loud'\n"));
    EXPECT_THAT(complaints, testing::HasSubstr(bad + ":1: "));
    EXPECT_THAT(complaints, testing::HasSubstr(bad + ": wanted a 16-bit WAV or an Ogg Vorbis file\n"));
}

}  // namespace
}  // namespace grub
