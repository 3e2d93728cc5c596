#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "sound_layer.h"
#include "text_lines.h"

namespace grub {

/// A line of a source as words.
struct SourceLine {
    int number = 0;
    std::vector<std::string_view> words;
};

/// The lines that say something, in order. Views of `text`.
[[nodiscard]] std::vector<SourceLine> sourceLines(std::string_view text);

/// Fills `error` with "wanted WANTED, found 'FOUND'"; always false, so that a reader can return it.
bool refuse(TextError& error, int line, std::string_view wanted, std::string_view found);

/// Reads a decimal number from `low` to `high`; refuses any other word.
bool readNumber(std::string_view word, double low, double high, int line, double& value, TextError& error);

/// Hz of a note such as A4 (440), C#5 or Bb1, octaves 0 to 8, twelve equal steps an octave.
[[nodiscard]] std::optional<double> noteFrequency(std::string_view word);

/// Reads a note or a plain number of Hz.
bool readPitch(std::string_view word, int line, double& hertz, TextError& error);

/// Whether a word starts a layer: tone, noise, modes, voice or grains.
[[nodiscard]] bool isLayerKind(std::string_view word);

/// A new layer of the kind that the line names; `isLayerKind` holds for its first word.
[[nodiscard]] SoundLayer startLayer(const SourceLine& line);

/// Takes one line below the start of a layer; fills `error` and returns false when the line is not one of a layer.
[[nodiscard]] bool readLayerLine(const SourceLine& line, SoundLayer& layer, TextError& error);

/// Whether the layer has all that its kind needs, and ends; `line`, where it starts, goes into the error. The notes of
/// a score (`hasNotes`) end it; a layer of an effect must die away or have a length.
[[nodiscard]] bool layerIsWhole(const SoundLayer& layer, bool hasNotes, int line, TextError& error);

}  // namespace grub
