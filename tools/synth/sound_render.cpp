#include <cstdio>

#include "filters.h"
#include "fourier.h"
#include "layer_render.h"
#include "loudness.h"
#include "room.h"
#include "sound_source.h"

namespace grub {

namespace {

constexpr double kHighestPeak = -1.5;  // dB of full scale
constexpr double kLowestCorner = 60;   // Hz; below it nobody's speakers sound
constexpr double kFadeOut = 0.004;     // seconds
constexpr std::uint32_t kRoomSeed = 45;

Samples mixLayers(const SoundSource& source, int rate) {
    Samples mix(static_cast<std::size_t>(source.length * rate));
    std::uint32_t seed = 1;
    for (const SoundLayer& layer : source.layers) {
        addSamples(mix, 0, renderLayer(layer, rate, 1, 0, seed), 1);
        seed += 100;
    }
    return mix;
}

void drive(Samples& sound, double amount) {
    const double peak = std::max(peakOf(sound), 1e-9);
    for (double& sample : sound) sample = std::tanh(sample / peak * amount);
}

void addRoom(Samples& sound, const SoundSource& source, int rate) {
    const Samples echo = convolve(sound, roomResponse(source.roomDecay, rate, kRoomSeed));
    for (std::size_t i = 0; i < sound.size(); ++i) sound[i] += source.room * echo[i];
}

void fadeOut(Samples& sound, int rate) {
    const auto size = std::min(static_cast<std::size_t>(kFadeOut * rate), sound.size());
    for (std::size_t i = 0; i < size; ++i)
        sound[sound.size() - 1 - i] *= static_cast<double>(i) / static_cast<double>(size);
}

std::string decibelText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

}  // namespace

std::optional<Samples> renderSound(const SoundSource& source, TextError& error) {
    const int rate = static_cast<int>(source.rate);
    Samples sound = mixLayers(source, rate);
    if (source.drive > 0) drive(sound, source.drive);
    if (source.room > 0) addRoom(sound, source, rate);
    cutLow(sound, kLowestCorner, rate);
    fadeOut(sound, rate);
    const double gain = fromDecibels(source.loudness - loudestMoment({&sound, 1}, rate));
    for (double& sample : sound) sample *= gain;
    const double peak = toDecibels(truePeak(sound));
    if (peak > kHighestPeak) {
        refuse(error, 0, "a peak of at most -1.5 dB at this loudness (more drive lowers it)", decibelText(peak));
        return std::nullopt;
    }
    return sound;
}

}  // namespace grub
