#include "sound_source.h"

#include <array>

#include "layer_reader.h"

namespace grub {

namespace {

struct HeadKey {
    std::string_view key;
    double SoundSource::*field;
    double low;
    double high;
};

constexpr std::array kHeadKeys{
    HeadKey{"length", &SoundSource::length, 0.01, 10},      HeadKey{"rate", &SoundSource::rate, 8000, 48000},
    HeadKey{"loudness", &SoundSource::loudness, -60, -1},   HeadKey{"room", &SoundSource::room, -60, 20},
    HeadKey{"roomdecay", &SoundSource::roomDecay, 0.01, 2}, HeadKey{"drive", &SoundSource::drive, 0.1, 20},
};

bool readHeadLine(const SourceLine& line, SoundSource& source, TextError& error) {
    for (const HeadKey& key : kHeadKeys) {
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

}  // namespace grub
