#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "filters.h"
#include "fourier.h"
#include "layer_render.h"
#include "loudness.h"
#include "measure.h"
#include "white_noise.h"

namespace grub {
namespace {

Samples sine(double frequency, double amplitude, double seconds, int rate) {
    Samples sound(static_cast<std::size_t>(seconds * rate));
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = amplitude * std::sin(kTwoPi * frequency * static_cast<double>(i) / rate);
    return sound;
}

// ITU-R BS.1770: a sine of 997 Hz at full scale in one channel reads -3.01.
TEST(Loudness, IsThatOfTheStandardAtEveryRate) {
    for (const int rate : {22050, 44100, 48000}) {
        const Samples tone = sine(997, 1, 3, rate);
        EXPECT_NEAR(integratedLoudness({&tone, 1}, rate), -3.01, 0.05) << rate;
        EXPECT_NEAR(loudestMoment({&tone, 1}, rate), -3.01, 0.05) << rate;
        const std::vector<Samples> both{tone, tone};
        EXPECT_NEAR(integratedLoudness(both, rate), 0, 0.05) << rate;
    }
}

TEST(Loudness, DoesNotCountSilence) {
    Samples sound = sine(997, 0.1, 4, kMusicRate);
    const double alone = integratedLoudness({&sound, 1}, kMusicRate);
    sound.resize(sound.size() * 3);
    EXPECT_NEAR(integratedLoudness({&sound, 1}, kMusicRate), alone, 0.3);
    const Samples shortTone = sine(997, 0.1, 0.1, kMusicRate);  // a quarter of a moment
    EXPECT_NEAR(loudestMoment({&shortTone, 1}, kMusicRate), alone - 6.02, 0.2);
}

// Samples of a quarter of the rate that miss every crest by an eighth of a turn are all 3 dB too low.
TEST(Loudness, PeaksAreFoundBetweenTheSamples) {
    Samples sound(4000);
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] =
            std::sin(kTwoPi * (static_cast<double>(i) / 4 + 0.125)) * std::min(1.0, static_cast<double>(i) / 2000);
    EXPECT_NEAR(peakOf(sound), std::sqrt(0.5), 1e-3);
    EXPECT_NEAR(truePeak(std::span(sound).first(3900)), 1, 0.05);
    EXPECT_EQ(truePeak({}), 0);
}

TEST(Fourier, EchoIsTheSumOfDelayedCopies) {
    WhiteNoise noise(1);
    Samples sound(5000);
    for (double& sample : sound) sample = noise.sample();
    Samples response(1500);
    response[0] = 1;
    response[700] = -0.5;
    response[1499] = 0.25;
    const Samples echo = convolve(sound, response);
    ASSERT_EQ(echo.size(), 6499U);
    for (std::size_t i = 0; i < echo.size(); ++i) {
        const auto at = [&](std::size_t delay) {
            return i >= delay && i - delay < sound.size() ? sound[i - delay] : 0;
        };
        ASSERT_NEAR(echo[i], at(0) - 0.5 * at(700) + 0.25 * at(1499), 1e-9) << i;
    }
}

TEST(Measures, TellWhereTheEnergyLies) {
    const SoundMeasures high = measureSound({kMusicRate, {sine(2000, 0.5, 1, kMusicRate)}});
    EXPECT_NEAR(high.centroid, 2000, 20);
    EXPECT_GT(high.heard, 0.99);
    EXPECT_NEAR(high.peak, -6.02, 0.01);
    EXPECT_NEAR(high.duration, 1, 0.001);
    EXPECT_LT(measureSound({kMusicRate, {sine(100, 0.5, 1, kMusicRate)}}).heard, 0.01);
}

SoundLayer toneOf(double pitch) {
    SoundLayer layer;
    layer.pitch = pitch;
    layer.partials = {1, 0.5, 0.25};
    layer.length = 0.5;
    return layer;
}

double levelAt(const Samples& sound, double frequency) {
    double real = 0;
    double imaginary = 0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double angle = kTwoPi * frequency * static_cast<double>(i) / kMusicRate;
        real += sound[i] * std::cos(angle);
        imaginary += sound[i] * std::sin(angle);
    }
    return std::hypot(real, imaginary) / static_cast<double>(sound.size());
}

TEST(LayerRendering, PartialsStandAtMultiplesOfThePitch) {
    const Samples sound = renderLayer(toneOf(441), kMusicRate, 1, 0, 1);
    const double ground = levelAt(sound, 441);
    EXPECT_NEAR(levelAt(sound, 882) / ground, 0.5, 0.01);
    EXPECT_NEAR(levelAt(sound, 1323) / ground, 0.25, 0.01);
    EXPECT_LT(levelAt(sound, 1764) / ground, 0.01);
}

TEST(LayerRendering, LeavesOutPartialsThatWouldComeBackAsWrongTones) {
    const Samples sound = renderLayer(toneOf(9000), kMusicRate, 1, 0, 1);
    EXPECT_GT(levelAt(sound, 18000), 0.1);
    EXPECT_LT(levelAt(sound, 44100 - 27000), 0.001);
}

TEST(LayerRendering, HitsRepeatInTimePitchAndGain) {
    SoundLayer layer = toneOf(441);
    layer.length = 0.05;
    layer.release = 0.005;
    layer.hits = {{0, 1, 1}, {0.5, 2, 0.5}};
    Samples sound = renderLayer(layer, kMusicRate, 1, 0, 1);
    sound.resize(30000);
    const Samples first(sound.begin(), sound.begin() + 4410);
    const Samples second(sound.begin() + 22050, sound.begin() + 26460);
    EXPECT_GT(levelAt(first, 441), 20 * levelAt(second, 441));
    EXPECT_NEAR(levelAt(second, 882), levelAt(first, 441) / 2, 0.02 * levelAt(first, 441));
    EXPECT_LT(peakOf(std::span(sound).subspan(13230, 4410)), 0.001);
}

TEST(LayerRendering, NoiseStaysInItsBandAndDependsOnItsSeed) {
    SoundLayer layer;
    layer.kind = LayerKind::Noise;
    layer.bandLow = 900;
    layer.bandHigh = 1100;
    layer.length = 1;
    const Samples sound = renderLayer(layer, kMusicRate, 1, 0, 1);
    EXPECT_NEAR(measureSound({kMusicRate, {sound}}).centroid, 1000, 500);
    EXPECT_EQ(renderLayer(layer, kMusicRate, 1, 0, 1), sound);
    EXPECT_NE(renderLayer(layer, kMusicRate, 1, 0, 2), sound);
}

TEST(LayerRendering, GlidesByEqualIntervals) {
    SoundLayer layer = toneOf(400);
    layer.partials = {1};
    layer.length = 1;
    layer.glide = {{0, 1}, {1, 4}};
    const Samples sound = renderLayer(layer, kMusicRate, 1, 0, 1);
    int crossings = 0;  // around half a second, where the pitch is 800 Hz
    for (std::size_t i = 19845; i < 24255; ++i) crossings += sound[i] < 0 && sound[i + 1] >= 0;
    EXPECT_NEAR(crossings, 80, 2);
}

}  // namespace
}  // namespace grub
