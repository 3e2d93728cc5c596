#include "layer_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

#include "samples.h"
#include "text_lines.h"

namespace grub {

// ---- lines, numbers, notes

std::vector<SourceLine> sourceLines(std::string_view text) {
    std::vector<SourceLine> lines;
    for (const TextLine& line : textLines(text)) lines.push_back({line.number, splitWords(line.content)});
    return lines;
}

bool refuse(TextError& error, int line, std::string_view wanted, std::string_view found) {
    error = wantedButFound(line, wanted, inQuotes(found));
    return false;
}

bool readNumber(std::string_view word, double low, double high, int line, double& value, TextError& error) {
    const auto number = numberIn<double>(word);
    if (!number || !(*number >= low && *number <= high)) {  // "nan" is in no range
        std::ostringstream wanted;
        wanted << "a number from " << low << " to " << high;
        return refuse(error, line, wanted.str(), word);
    }
    value = *number;
    return true;
}

std::optional<double> noteFrequency(std::string_view word) {
    constexpr std::string_view kNames = "C D EF G A B";
    if (word.size() < 2 || word.size() > 3 || word[0] == ' ') return std::nullopt;
    const auto step = kNames.find(word[0]);
    const char octave = word.back();
    if (step == std::string_view::npos || octave < '0' || octave > '8') return std::nullopt;
    int semitone = static_cast<int>(step) + 12 * (octave - '0');
    if (word.size() == 3) {
        if (word[1] != '#' && word[1] != 'b') return std::nullopt;
        semitone += word[1] == '#' ? 1 : -1;
    }
    constexpr int kA4 = 9 + 12 * 4;
    return 440 * std::pow(2, (semitone - kA4) / 12.0);
}

bool readPitch(std::string_view word, int line, double& hertz, TextError& error) {
    if (const auto note = noteFrequency(word)) {
        hertz = *note;
        return true;
    }
    const auto number = numberIn<double>(word);
    if (!number || !(*number >= 1 && *number <= 20000))
        return refuse(error, line, "a note or a number of Hz from 1 to 20000", word);
    hertz = *number;
    return true;
}

// ---- layers

namespace {

struct KindName {
    std::string_view name;
    LayerKind kind;
};

constexpr std::array kKinds{
    KindName{"tone", LayerKind::Tone},   KindName{"noise", LayerKind::Noise},   KindName{"modes", LayerKind::Modes},
    KindName{"voice", LayerKind::Voice}, KindName{"grains", LayerKind::Grains},
};

enum class Unit { Plain, Decibels };

/// A key with one number behind it.
struct NumberKey {
    std::string_view key;
    double SoundLayer::*field;
    double low;
    double high;
    Unit unit = Unit::Plain;
};

constexpr std::array kNumberKeys{
    //        key        field                     from    to
    NumberKey{"gain", &SoundLayer::gain, -60, 40, Unit::Decibels},
    NumberKey{"pan", &SoundLayer::pan, -1, 1},
    NumberKey{"attack", &SoundLayer::attack, 0, 10},
    NumberKey{"hold", &SoundLayer::hold, 0, 10},
    NumberKey{"decay", &SoundLayer::decay, 0.0001, 10},
    NumberKey{"sustain", &SoundLayer::sustain, 0, 1},
    NumberKey{"length", &SoundLayer::length, 0.001, 10},
    NumberKey{"release", &SoundLayer::release, 0.001, 5},
    NumberKey{"damp", &SoundLayer::damp, 0, 100},
    NumberKey{"breath", &SoundLayer::breath, 0, 10},
    NumberKey{"jitter", &SoundLayer::jitter, 0, 1},
    NumberKey{"count", &SoundLayer::count, 1, 1000},
    NumberKey{"spread", &SoundLayer::spread, 0.001, 5},
    NumberKey{"fade", &SoundLayer::fade, 0.001, 10},
    NumberKey{"seed", &SoundLayer::seed, 0, 10000},
};

bool readHit(const SourceLine& line, SoundLayer& layer, TextError& error) {
    const auto& words = line.words;
    LayerHit hit;
    if (words.size() > 4) return refuse(error, line.number, "'hit TIME [PITCH [GAIN]]'", words[4]);
    if (!readNumber(words[1], 0, 10, line.number, hit.time, error)) return false;
    if (words.size() > 2) {
        const auto note = noteFrequency(words[2]);
        if (note)
            hit.pitch = *note / layer.pitch;
        else if (!readNumber(words[2], 0.05, 20, line.number, hit.pitch, error))
            return false;
    }
    double decibels = 0;
    if (words.size() > 3 && !readNumber(words[3], -60, 40, line.number, decibels, error)) return false;
    hit.gain = fromDecibels(decibels);
    layer.hits.push_back(hit);
    return true;
}

bool readGlide(const SourceLine& line, SoundLayer& layer, TextError& error) {
    for (std::size_t i = 1; i < line.words.size(); ++i) {
        const std::string_view word = line.words[i];
        const auto colon = word.find(':');
        GlidePoint point;
        if (colon == std::string_view::npos) return refuse(error, line.number, "TIME:FACTOR", word);
        if (!readNumber(word.substr(0, colon), 0, 10, line.number, point.time, error)) return false;
        if (!readNumber(word.substr(colon + 1), 0.01, 100, line.number, point.factor, error)) return false;
        if (!layer.glide.empty() && point.time <= layer.glide.back().time)
            return refuse(error, line.number, "a later time than the one before", word);
        layer.glide.push_back(point);
    }
    return true;
}

bool readPartials(const SourceLine& line, SoundLayer& layer, TextError& error) {
    for (std::size_t i = 1; i < line.words.size(); ++i) {
        double amplitude = 0;
        if (!readNumber(line.words[i], -10, 10, line.number, amplitude, error)) return false;
        layer.partials.push_back(amplitude);
    }
    return true;
}

/// A row of numbers that a key wants, each with its limits.
struct NumberRow {
    std::string_view form;
    std::vector<std::pair<double, double>> limits;
};

bool readRow(const SourceLine& line, const NumberRow& row, std::vector<double>& values, TextError& error) {
    if (line.words.size() != row.limits.size() + 1) return refuse(error, line.number, row.form, line.words.back());
    for (std::size_t i = 0; i < row.limits.size(); ++i) {
        const auto [low, high] = row.limits[i];
        double value = 0;
        if (!readNumber(line.words[i + 1], low, high, line.number, value, error)) return false;
        values.push_back(value);
    }
    return true;
}

bool readBand(const SourceLine& line, SoundLayer& layer, TextError& error) {
    std::vector<double> v;
    if (!readRow(line, {"'band LOW HIGH'", {{10, 20000}, {10, 20000}}}, v, error)) return false;
    if (v[0] >= v[1]) return refuse(error, line.number, "a band that ends above its start", line.words[2]);
    layer.bandLow = v[0];
    layer.bandHigh = v[1];
    return true;
}

bool readMode(const SourceLine& line, SoundLayer& layer, TextError& error) {
    std::vector<double> v;
    if (!readRow(line, {"'mode RATIO GAIN DECAY'", {{0.01, 20000}, {-60, 40}, {0.001, 10}}}, v, error)) return false;
    layer.modes.push_back({v[0], fromDecibels(v[1]), v[2]});
    return true;
}

bool readFormant(const SourceLine& line, SoundLayer& layer, TextError& error) {
    std::vector<double> v;
    const NumberRow row{"'formant HZ WIDTH GAIN'", {{50, 15000}, {10, 5000}, {-60, 40}}};
    if (!readRow(line, row, v, error)) return false;
    layer.formants.push_back({v[0], v[1], fromDecibels(v[2])});
    return true;
}

bool readVibrato(const SourceLine& line, SoundLayer& layer, TextError& error) {
    std::vector<double> v;
    if (!readRow(line, {"'vibrato RATE DEPTH'", {{0.1, 100}, {0, 1}}}, v, error)) return false;
    layer.vibratoRate = v[0];
    layer.vibratoDepth = v[1];
    return true;
}

bool readTremolo(const SourceLine& line, SoundLayer& layer, TextError& error) {
    std::vector<double> v;
    if (!readRow(line, {"'tremolo RATE DEPTH'", {{0.1, 200}, {0, 1}}}, v, error)) return false;
    layer.tremoloRate = v[0];
    layer.tremoloDepth = v[1];
    return true;
}

bool readBasePitch(const SourceLine& line, SoundLayer& layer, TextError& error) {
    if (line.words.size() != 2) return refuse(error, line.number, "'pitch NOTE' or 'pitch HZ'", line.words.back());
    if (!layer.hits.empty()) return refuse(error, line.number, "the pitch before the first hit", "pitch");
    return readPitch(line.words[1], line.number, layer.pitch, error);
}

struct RowKey {
    std::string_view key;
    bool (*read)(const SourceLine&, SoundLayer&, TextError&);
};

constexpr std::array kRowKeys{
    RowKey{"hit", readHit},         RowKey{"glide", readGlide},     RowKey{"partials", readPartials},
    RowKey{"band", readBand},       RowKey{"mode", readMode},       RowKey{"formant", readFormant},
    RowKey{"vibrato", readVibrato}, RowKey{"tremolo", readTremolo}, RowKey{"pitch", readBasePitch},
};

bool ends(const SoundLayer& layer, bool hasNotes) {
    return hasNotes || layer.length > 0 || (layer.decay > 0 && layer.sustain <= 0) || layer.kind == LayerKind::Modes;
}

}  // namespace

bool isLayerKind(std::string_view word) {
    return std::any_of(kKinds.begin(), kKinds.end(), [word](const KindName& kind) { return kind.name == word; });
}

SoundLayer startLayer(const SourceLine& line) {
    SoundLayer layer;
    for (const KindName& kind : kKinds)
        if (kind.name == line.words[0]) layer.kind = kind.kind;
    return layer;
}

bool readLayerLine(const SourceLine& line, SoundLayer& layer, TextError& error) {
    const std::string_view word = line.words[0];
    const auto row = std::find_if(kRowKeys.begin(), kRowKeys.end(), [&](const RowKey& k) { return k.key == word; });
    const auto key =
        std::find_if(kNumberKeys.begin(), kNumberKeys.end(), [&](const NumberKey& k) { return k.key == word; });
    if (row == kRowKeys.end() && key == kNumberKeys.end()) return refuse(error, line.number, "a key of a layer", word);
    if (line.words.size() < 2) return refuse(error, line.number, "a value behind the key", word);
    if (row != kRowKeys.end()) return row->read(line, layer, error);
    if (line.words.size() > 2) return refuse(error, line.number, "one value", line.words[2]);
    double value = 0;
    if (!readNumber(line.words[1], key->low, key->high, line.number, value, error)) return false;
    layer.*(key->field) = key->unit == Unit::Decibels ? fromDecibels(value) : value;
    return true;
}

bool layerIsWhole(const SoundLayer& layer, bool hasNotes, int line, TextError& error) {
    const auto lacks = [&](std::string_view wanted) { return refuse(error, line, wanted, "a layer without"); };
    switch (layer.kind) {
        case LayerKind::Tone:
            if (layer.partials.empty()) return lacks("partials");
            break;
        case LayerKind::Noise:
            if (layer.bandLow <= 0) return lacks("a band");
            break;
        case LayerKind::Modes:
            if (layer.modes.empty()) return lacks("a mode");
            break;
        case LayerKind::Voice:
            if (layer.formants.empty()) return lacks("a formant");
            break;
        case LayerKind::Grains:
            if (layer.bandLow <= 0 || layer.count <= 0 || layer.spread <= 0 || layer.decay <= 0)
                return lacks("a band, count, spread and decay");
            break;
    }
    return ends(layer, hasNotes) || lacks("a decay or a length");
}

}  // namespace grub
