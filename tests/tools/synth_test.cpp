// How sounds are rendered and measured, and what their sources may say.

#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

#include "bytes.h"
#include "grubtool_run.h"
#include "measure.h"
#include "score_source.h"
#include "scratch_directory.h"
#include "sound_source.h"

namespace grub {
namespace {

using testing::HasSubstr;

Samples sine(double frequency, double amplitude, double seconds, int rate = kMusicRate) {
    Samples sound(static_cast<std::size_t>(seconds * rate));
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = amplitude * std::sin(kTwoPi * frequency * static_cast<double>(i) / rate);
    return sound;
}

// ITU-R BS.1770: a sine of 997 Hz at full scale in one channel reads -3.01.
TEST(Measures, ReadTheLoudnessOfTheStandardAtEveryRateWithoutSilence) {
    for (const int rate : {22050, 44100, 48000}) {
        Samples tone = sine(997, 1, 4, rate);
        const std::vector<Samples> both{tone, tone};
        EXPECT_NEAR(integratedLoudness(both, rate), 0, 0.05) << rate;
        tone.resize(3 * tone.size());
        EXPECT_NEAR(loudestMoment({&tone, 1}, rate), -3.01, 0.05) << rate;
        EXPECT_NEAR(integratedLoudness({&tone, 1}, rate), -3.01, 0.3) << rate;
    }
}

// Samples of a quarter of the rate that miss every crest by an eighth of a turn are all 3 dB too low.
TEST(Measures, FindPeaksBetweenSamples) {
    Samples sound(4000);
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = std::sin(kTwoPi * (static_cast<double>(i) / 4 + 0.125)) * static_cast<double>(i) / 4000;
    EXPECT_NEAR(truePeak(std::span(sound).first(3900)), 0.975, 0.05);
}

/// Rising zero crossings in the tenth of a second from `second` on.
int crossings(std::span<const double> sound, double second) {
    int count = 0;
    for (auto i = static_cast<std::size_t>(second * kMusicRate), n = i + kMusicRate / 10; i < n; ++i)
        count += sound[i] < 0 && sound[i + 1] >= 0;
    return count;
}

TEST(Layers, GlideByEqualIntervalsAndLeaveOutWhatTheRateCannotHold) {
    SoundLayer layer;
    layer.pitch = 400;
    layer.partials = {1};
    layer.length = 1;
    layer.glide = {{0, 1}, {1, 4}};
    EXPECT_NEAR(crossings(renderLayer(layer, kMusicRate, 1, 0, 1), 0.45), 80, 2);  // 800 Hz in the middle
    layer.pitch = 23000;
    EXPECT_LT(peakOf(renderLayer(layer, kMusicRate, 1, 0, 1)), 0.001);
}

TEST(SoundSourceFormat, HasHitsWithNotesOfTheirOwn) {
    TextError error;
    const auto source =
        readSoundSource("length 1\nloudness -20\ntone\n  partials 1\n  decay 2\n  pitch A4\n  hit 0.5 A5 -6\n", error);
    ASSERT_TRUE(source) << error.message;
    const auto sound = renderSound(*source, error);
    ASSERT_TRUE(sound) << error.message;
    EXPECT_LT(peakOf(std::span(*sound).first(22000)), 0.001);
    EXPECT_NEAR(crossings(*sound, 0.6), 88, 2);
}

TEST(ScoreFormat, ReadsChordsAccentsAndPhrases) {
    TextError error;
    const auto score = readScore(
        "tempo 60\nbar 2\nloudness -14\nform A B A\ninstrument reed\n  tone\n    partials 1\n"
        "phrase A\n  reed A4+E5! .:1 |\nphrase B\n  reed .:.5 Bb4 .:1 |\n  reed .:2 |\n",
        error);
    ASSERT_TRUE(score) << error.message;
    EXPECT_EQ(score->form, (std::vector<std::size_t>{0, 1, 0}));
    EXPECT_DOUBLE_EQ(score->beats(), 8);
    std::ostringstream notes;
    for (const Phrase& phrase : score->phrases) {
        for (const ScoreNote& note : phrase.voices.at(0).notes)
            notes << note.beat << ':' << note.beats << ' ' << note.pitch << ' ' << note.gain << "\n";
    }
    EXPECT_EQ(notes.str(), "0:1 440 1.5\n0:1 659.255 1.5\n0.5:0.5 466.164 1\n");
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
    EXPECT_EQ(left.size(), 4U * kMusicRate);
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
    {"a number with a tail", "length 1s\n", 1, "a number from 0.01 to 10, found '1s'"},
    {"a band upside down", "noise\nband 500 400\n", 2, "a band that ends above its start, found '400'"},
    {"a glide back in time", "tone\nglide 0:1 0.2:2 0.1:1\n", 2, "a later time than the one before, found '0.1:1'"},
    {"a noise without a band", "# a line\nlength 1\nloudness -20\n\nnoise\ndecay 1\n", 5, "a band"},
    {"a layer that never ends", "length 1\nloudness -20\ntone\npartials 1\ndecay 1\nsustain .5\n", 3, "a length"},
};

constexpr SourceFault kScoreFaults[] = {
    {"a voice of an unknown instrument", "phrase A\nflute A4\n", 2, "an instrument, found 'flute'"},
    {"a bar too early", "instrument a\nphrase A\na A4:3.5 | A4\n", 3, "the end of a bar, found '| after 3.50 beats'"},
    {"voices of different length",
     "tempo 90\nloudness -9\nform A\ninstrument a\ntone\npartials 1\ninstrument b\ntone\npartials 1\n"
     "phrase A\na A4:4\nb A4:3\n",
     10, "4.00 beats of b, found '3.00 beats'"},
    {"a form with an unknown phrase",
     "tempo 90\nloudness -9\nform A B\ninstrument a\ntone\npartials 1\nphrase A\na A4:4\n", 3, "a phrase, found 'B'"},
};

TEST(SourceFormats, NameTheLineThatTheyDoNotUnderstand) {
    const auto expectFaults = [](std::span<const SourceFault> faults, auto read) {
        for (const SourceFault& fault : faults) {
            SCOPED_TRACE(fault.what);
            TextError error{-1, "no error"};
            EXPECT_FALSE(read(fault.text, error));
            EXPECT_EQ(error.line, fault.line);
            EXPECT_THAT(error.message, HasSubstr(fault.message));
        }
    };
    expectFaults(kSoundFaults, readSoundSource);
    expectFaults(kScoreFaults, readScore);
}

// The two sources stand in docs/formats/sound-sources.md.
TEST(SoundCommands, RenderMeasureDrawAndNameWhatTheyRefuse) {
    const ScratchDirectory scratch;
    const std::string source =
        scratch.write("tap.txt", bytesOf("length 0.1\nloudness -30\nnoise\n  band 300 3000\n  decay 0.01\n"));
    const std::string bad = scratch.write("bad.txt", bytesOf("length 1\nloud 3\n"));
    const std::string wav = scratch.file("a.wav");
    ASSERT_EQ(grubtool({"sound", "render", source, wav}).exitCode, 0);
    ASSERT_EQ(grubtool({"sound", "render", source, scratch.file("b.wav")}).exitCode, 0);
    EXPECT_EQ(scratch.read("a.wav"), scratch.read("b.wav"));
    ASSERT_EQ(grubtool({"sound", "sheet", scratch.file("sheet.png"), wav, wav}).exitCode, 0);
    EXPECT_GT(scratch.read("sheet.png").size(), 1000U);
    EXPECT_THAT(grubtool({"sound", "measure", wav}).out,
                testing::AllOf(HasSubstr("  0.10 s"), HasSubstr("loudest  -30.0 LUFS")));
    const std::string score =
        "tempo 120\nloudness -14\nform A\ninstrument reed\n  tone\n    partials 1\nphrase A\n  reed A4 . C5 .\n";
    const std::string ogg = scratch.file("a.ogg");
    ASSERT_EQ(grubtool({"music", "render", scratch.write("score.txt", bytesOf(score)), ogg}).exitCode, 0);
    EXPECT_THAT(grubtool({"sound", "measure", ogg}).out, HasSubstr("  2.00 s"));
    EXPECT_TRUE(grubtool({"sound", "render", bad, wav}).failed(1, bad + ":2: wanted a key of the head or a layer"));
    EXPECT_TRUE(grubtool({"music", "render", bad, scratch.file("c.ogg")}).failed(1, bad + ":1: "));
    EXPECT_TRUE(grubtool({"sound", "measure", bad}).failed(1, bad + ": wanted a 16-bit WAV or an Ogg Vorbis file\n"));
}

}  // namespace
}  // namespace grub
