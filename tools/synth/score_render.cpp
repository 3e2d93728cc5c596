#include "filters.h"
#include "fourier.h"
#include "measure.h"
#include "samples.h"
#include "score_source.h"
#include "sound_layer.h"

namespace grub {

namespace {

constexpr double kArticulation = 0.92;  // of its beats a note sounds before it is let go
constexpr double kLowestCorner = 35;    // Hz
constexpr double kLimit = 0.72;         // amplitude, -2.9 dB; leaves the encoder room to err
constexpr double kUnevenness = 0.12;    // share by which notes differ in loudness, as a player's do

/// A stereo loop: what goes on behind the end comes in again at the start, as if it had been played before.
class LoopMix {
public:
    explicit LoopMix(std::size_t size) : channels_(2, Samples(size)) {}

    void add(std::size_t start, const Samples& sound, double gain, double pan) {
        const double angle = (pan + 1) * std::numbers::pi / 4;
        addTo(channels_[0], start, sound, gain * std::cos(angle));
        addTo(channels_[1], start, sound, gain * std::sin(angle));
    }

    void addRoom(double gain, double decay) {
        for (std::uint32_t c = 0; c < 2; ++c) {
            const Samples echo = convolve(channels_[c], roomResponse(decay, kMusicRate, 7 + c));
            addTo(channels_[c], 0, echo, gain);
        }
    }

    std::vector<Samples>& channels() { return channels_; }

private:
    static void addTo(Samples& channel, std::size_t start, const Samples& sound, double gain) {
        std::size_t at = start % channel.size();
        for (const double sample : sound) {
            channel[at] += gain * sample;
            if (++at == channel.size()) at = 0;
        }
    }

    std::vector<Samples> channels_;
};

/// Only what has a pitch follows the note; noise keeps its band.
double pitchFor(const SoundLayer& layer, double pitch) {
    const bool follows = layer.kind != LayerKind::Noise && layer.kind != LayerKind::Grains;
    return follows && pitch > 0 ? pitch / layer.pitch : 1;
}

void playNote(LoopMix& mix, const Instrument& instrument, const ScoreNote& note, double start, double beat) {
    const auto sample = static_cast<std::size_t>(std::lround(start * kMusicRate));
    const auto seed = static_cast<std::uint32_t>(sample);
    const double uneven = 1 + kUnevenness * WhiteNoise(seed).sample();
    const double length = note.beats * beat * kArticulation;
    for (const SoundLayer& layer : instrument.layers) {
        const Samples sound = renderLayer(layer, kMusicRate, pitchFor(layer, note.pitch), length, seed);
        mix.add(sample, sound, note.gain * uneven, layer.pan);
    }
}

void playPhrase(LoopMix& mix, const Score& score, const Phrase& phrase, double startBeat) {
    const double beat = 60 / score.tempo;
    for (const PhraseVoice& voice : phrase.voices) {
        for (const ScoreNote& note : voice.notes)
            playNote(mix, score.instruments[voice.instrument], note, (startBeat + note.beat) * beat, beat);
    }
}

/// A loop filtered as if it had been going on for ever.
void cutLowOfLoop(Samples& loop) {
    Samples twice(loop);
    twice.insert(twice.end(), loop.begin(), loop.end());
    cutLow(twice, kLowestCorner, kMusicRate);
    std::copy(twice.begin() + static_cast<std::ptrdiff_t>(loop.size()), twice.end(), loop.begin());
}

/// Brings a loop to a loudness; the limit takes some of it back, so that takes a few rounds.
std::vector<Samples> mastered(const std::vector<Samples>& mix, double loudness) {
    constexpr int kRounds = 6;
    std::vector<Samples> out(mix);
    double gain = fromDecibels(loudness - integratedLoudness(mix, kMusicRate));
    for (int round = 0; round < kRounds; ++round) {
        for (std::size_t c = 0; c < mix.size(); ++c)
            for (std::size_t i = 0; i < mix[c].size(); ++i) out[c][i] = gain * mix[c][i];
        limitLoop(out, kLimit, kMusicRate);
        gain *= fromDecibels(loudness - integratedLoudness(out, kMusicRate));
    }
    return out;
}

}  // namespace

std::vector<Samples> renderScore(const Score& score) {
    LoopMix mix(static_cast<std::size_t>(std::lround(score.beats() * 60 / score.tempo * kMusicRate)));
    double beat = 0;
    for (const std::size_t phrase : score.form) {
        playPhrase(mix, score, score.phrases[phrase], beat);
        beat += score.phrases[phrase].beats;
    }
    if (score.room > 0) mix.addRoom(score.room, score.roomDecay);
    for (Samples& channel : mix.channels()) cutLowOfLoop(channel);
    return mastered(mix.channels(), score.loudness);
}

}  // namespace grub
