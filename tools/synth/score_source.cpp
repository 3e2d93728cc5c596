#include "score_source.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "layer_reader.h"

namespace grub {

namespace {

constexpr double kAccent = 1.5;
/// Beats are written with few digits: thirds do not add up exactly.
constexpr double kBeatSlack = 0.02;

struct ScoreHeadKey {
    std::string_view key;
    double Score::*field;
    double low;
    double high;
};

constexpr std::array kHeadKeys{
    ScoreHeadKey{"tempo", &Score::tempo, 20, 400},         ScoreHeadKey{"bar", &Score::bar, 1, 16},
    ScoreHeadKey{"loudness", &Score::loudness, -60, -1},   ScoreHeadKey{"room", &Score::room, -60, 0},
    ScoreHeadKey{"roomdecay", &Score::roomDecay, 0.01, 2},
};

template <typename Named>
std::optional<std::size_t> indexOf(const std::vector<Named>& all, std::string_view name) {
    const auto found = std::find_if(all.begin(), all.end(), [name](const Named& one) { return one.name == name; });
    if (found == all.end()) return std::nullopt;
    return static_cast<std::size_t>(found - all.begin());
}

/// Takes a score apart line by line; what a line means depends on the block that it stands in.
class ScoreReader {
public:
    explicit ScoreReader(TextError& error) : error_(error) {}

    std::optional<Score> read(std::string_view text) {
        for (const SourceLine& line : sourceLines(text)) {
            if (!readLine(line)) return std::nullopt;
        }
        if (!isWhole()) return std::nullopt;
        return std::move(score_);
    }

private:
    enum class Block { Head, Instrument, Phrase };

    bool readLine(const SourceLine& line) {
        const std::string_view word = line.words[0];
        if (word == "instrument" || word == "phrase") return startBlock(line);
        if (block_ == Block::Instrument) return readInstrumentLine(line);
        if (block_ == Block::Phrase) return readVoiceLine(line);
        return readHeadLine(line);
    }

    bool readHeadLine(const SourceLine& line) {
        if (line.words[0] == "form") {
            form_ = line;
            return true;
        }
        for (const ScoreHeadKey& key : kHeadKeys) {
            if (key.key != line.words[0]) continue;
            if (line.words.size() != 2) return refuse(error_, line.number, "one value", line.words.back());
            if (!readNumber(line.words[1], key.low, key.high, line.number, score_.*(key.field), error_)) return false;
            if (key.field == &Score::room) score_.room = std::pow(10, score_.room / 20);
            return true;
        }
        return refuse(error_, line.number, "a key of the head, an instrument or a phrase", line.words[0]);
    }

    bool startBlock(const SourceLine& line) {
        if (line.words.size() != 2) return refuse(error_, line.number, "one name", line.words.back());
        const std::string name(line.words[1]);
        if (line.words[0] == "instrument") {
            if (indexOf(score_.instruments, name)) return refuse(error_, line.number, "each instrument once", name);
            score_.instruments.push_back({name, {}, line.number});
            block_ = Block::Instrument;
        } else {
            if (indexOf(score_.phrases, name)) return refuse(error_, line.number, "each phrase once", name);
            score_.phrases.push_back({name, {}, 0, line.number});
            block_ = Block::Phrase;
        }
        return true;
    }

    bool readInstrumentLine(const SourceLine& line) {
        auto& layers = score_.instruments.back().layers;
        if (isLayerKind(line.words[0])) {
            layers.push_back(startLayer(line));
            return true;
        }
        if (layers.empty()) return refuse(error_, line.number, "a layer", line.words[0]);
        return readLayerLine(line, layers.back(), error_);
    }

    bool readVoiceLine(const SourceLine& line) {
        const auto instrument = indexOf(score_.instruments, line.words[0]);
        if (!instrument) return refuse(error_, line.number, "an instrument", line.words[0]);
        auto& voices = score_.phrases.back().voices;
        auto voice = std::find_if(voices.begin(), voices.end(),
                                  [&](const PhraseVoice& v) { return v.instrument == *instrument; });
        if (voice == voices.end()) voice = voices.insert(voices.end(), {*instrument, {}, 0});
        double beats = 1;
        for (std::size_t i = 1; i < line.words.size(); ++i) {
            if (!readNote(line.words[i], line.number, *voice, beats)) return false;
        }
        return true;
    }

    /// NOTE[+NOTE...][!][:BEATS], x for a note without pitch, . for a rest, | for the end of a bar.
    bool readNote(std::string_view word, int line, PhraseVoice& voice, double& beats) {
        if (word == "|") {
            const double over = std::fmod(voice.beats + kBeatSlack / 2, score_.bar);
            return over < kBeatSlack || refuse(error_, line, "the end of a bar", "| after " + beatText(voice.beats));
        }
        std::string_view pitches = word.substr(0, word.find(':'));
        if (pitches.size() != word.size() &&
            !readNumber(word.substr(pitches.size() + 1), 0.05, 64, line, beats, error_))
            return false;
        ScoreNote note{voice.beats, beats, 0, 1};
        voice.beats += beats;
        if (pitches == ".") return true;
        if (pitches.ends_with('!')) {
            note.gain = kAccent;
            pitches.remove_suffix(1);
        }
        return readPitches(pitches, line, note, voice);
    }

    bool readPitches(std::string_view pitches, int line, ScoreNote note, PhraseVoice& voice) {
        for (std::size_t start = 0; start <= pitches.size();) {
            const auto end = std::min(pitches.find('+', start), pitches.size());
            const std::string_view name = pitches.substr(start, end - start);
            const auto pitch = noteFrequency(name);
            if (!pitch && name != "x") return refuse(error_, line, "a note, x, . or |", name);
            note.pitch = pitch.value_or(0);
            voice.notes.push_back(note);
            start = end + 1;
        }
        return true;
    }

    static std::string beatText(double beats) {
        std::string text = std::to_string(beats);
        return text.substr(0, text.find('.') + 3) + " beats";
    }

    bool isWhole() {
        if (score_.tempo <= 0 || score_.loudness >= 0 || form_.words.empty())
            return refuse(error_, 0, "a tempo, a loudness and a form", "a score without");
        for (const Instrument& instrument : score_.instruments) {
            if (instrument.layers.empty()) return refuse(error_, instrument.line, "a layer", instrument.name);
            for (const SoundLayer& layer : instrument.layers) {
                if (!layerIsWhole(layer, true, instrument.line, error_)) return false;
            }
        }
        return std::all_of(score_.phrases.begin(), score_.phrases.end(),
                           [this](Phrase& p) { return phraseIsWhole(p); }) &&
               readForm();
    }

    /// All voices of a phrase are as long, whole bars.
    bool phraseIsWhole(Phrase& phrase) {
        if (phrase.voices.empty()) return refuse(error_, phrase.line, "a voice", phrase.name);
        const double bars = std::round(phrase.voices[0].beats / score_.bar);
        phrase.beats = bars * score_.bar;
        for (const PhraseVoice& voice : phrase.voices) {
            if (std::abs(voice.beats - phrase.beats) < kBeatSlack && bars > 0) continue;
            return refuse(error_, phrase.line, beatText(phrase.beats) + " of " + nameOf(voice), beatText(voice.beats));
        }
        return true;
    }

    const std::string& nameOf(const PhraseVoice& voice) const { return score_.instruments[voice.instrument].name; }

    bool readForm() {
        for (std::size_t i = 1; i < form_.words.size(); ++i) {
            const auto phrase = indexOf(score_.phrases, form_.words[i]);
            if (!phrase) return refuse(error_, form_.number, "a phrase", form_.words[i]);
            score_.form.push_back(*phrase);
        }
        return !score_.form.empty() || refuse(error_, form_.number, "a phrase", "form");
    }

    TextError& error_;
    Score score_;
    SourceLine form_;  // names phrases that come later
    Block block_ = Block::Head;
};

}  // namespace

double Score::beats() const {
    double sum = 0;
    for (const std::size_t phrase : form) sum += phrases[phrase].beats;
    return sum;
}

std::optional<Score> readScore(std::string_view text, TextError& error) { return ScoreReader(error).read(text); }

}  // namespace grub
