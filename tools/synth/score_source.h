#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "layer_reader.h"
#include "samples.h"
#include "sound_layer.h"

namespace grub {

/// What plays a line of a phrase: its layers sound together.
struct Instrument {
    std::string name;
    std::vector<SoundLayer> layers;
    int line = 0;
};

/// A note of a phrase. Times are beats from the phrase's start; pitch is Hz, 0 for an instrument that has none.
struct ScoreNote {
    double beat = 0;
    double beats = 1;
    double pitch = 0;
    double gain = 1;
};

/// What one instrument plays in a phrase.
struct PhraseVoice {
    std::size_t instrument = 0;
    std::vector<ScoreNote> notes;
    double beats = 0;
};

/// A piece of the tune that the form repeats.
struct Phrase {
    std::string name;
    std::vector<PhraseVoice> voices;
    double beats = 0;
    int line = 0;
};

/// A music track, as its score describes it (docs/formats/sound-sources.md).
struct Score {
    double tempo = 0;     ///< beats a minute
    double bar = 4;       ///< beats
    double loudness = 0;  ///< LUFS of the whole
    double room = 0;      ///< amplitude beside the dry sound
    double roomDecay = 0.2;
    std::vector<Instrument> instruments;
    std::vector<Phrase> phrases;
    std::vector<std::size_t> form;  ///< phrases in the order of playing

    /// Length of the loop, in beats.
    [[nodiscard]] double beats() const;
};

/// Reads a score. At the first wrong line it fills `error` and returns nothing.
[[nodiscard]] std::optional<Score> readScore(std::string_view text, TextError& error);

/// The finished loop, stereo at `kMusicRate`: what rings at its end is already in its start.
[[nodiscard]] std::vector<Samples> renderScore(const Score& score);

}  // namespace grub
