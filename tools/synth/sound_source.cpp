#include "sound_source.h"

#include <array>
#include <cstdio>

#include "filters.h"
#include "fourier.h"
#include "layer_reader.h"
#include "measure.h"
#include "sound_layer.h"

namespace grub {

// ---- reading

namespace {

struct SoundHeadKey {
    std::string_view key;
    double SoundSource::*field;
    double low;
    double high;
};

constexpr std::array kHeadKeys{
    SoundHeadKey{"length", &SoundSource::length, 0.01, 10},      SoundHeadKey{"rate", &SoundSource::rate, 8000, 48000},
    SoundHeadKey{"loudness", &SoundSource::loudness, -60, -1},   SoundHeadKey{"room", &SoundSource::room, -60, 20},
    SoundHeadKey{"roomdecay", &SoundSource::roomDecay, 0.01, 2}, SoundHeadKey{"drive", &SoundSource::drive, 0.1, 20},
};

bool readHeadLine(const SourceLine& line, SoundSource& source, TextError& error) {
    for (const SoundHeadKey& key : kHeadKeys) {
        if (key.key != line.words[0]) continue;
        if (line.words.size() != 2) return refuse(error, line.number, "one value", line.words.back());
        if (!readNumber(line.words[1], key.low, key.high, line.number, source.*(key.field), error)) return false;
        if (key.field == &SoundSource::room) source.room = fromDecibels(source.room);
        return true;
    }
    return refuse(error, line.number, "a key of the head or a layer", line.words[0]);
}

bool readLine(const SourceLine& line, SoundSource& source, std::vector<int>& starts, TextError& error) {
    if (isLayerKind(line.words[0])) {
        if (line.words.size() > 1) return refuse(error, line.number, "nothing behind a layer's kind", line.words[1]);
        source.layers.push_back(startLayer(line));
        starts.push_back(line.number);
        return true;
    }
    return source.layers.empty() ? readHeadLine(line, source, error) : readLayerLine(line, source.layers.back(), error);
}

}  // namespace

std::optional<SoundSource> readSoundSource(std::string_view text, TextError& error) {
    SoundSource source;
    std::vector<int> starts;
    for (const SourceLine& line : sourceLines(text)) {
        if (!readLine(line, source, starts, error)) return std::nullopt;
    }
    if (source.length <= 0 || source.loudness >= 0 || source.layers.empty()) {
        refuse(error, 0, "a length, a loudness and a layer", "a source without");
        return std::nullopt;
    }
    for (std::size_t i = 0; i < starts.size(); ++i) {
        if (!layerIsWhole(source.layers[i], false, starts[i], error)) return std::nullopt;
    }
    return source;
}

// ---- rendering

namespace {

constexpr double kHighestPeak = -1.5;  // dB of full scale
constexpr double kLowestCorner = 60;   // Hz; below it small speakers are silent
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
