#pragma once

#include "sound_layer.h"
#include "source_lines.h"

namespace grub {

/// Whether a word starts a layer: tone, noise, modes, voice or grains.
[[nodiscard]] bool isLayerKind(std::string_view word);

/// A new layer of the kind that the line names; `isLayerKind` holds for its first word.
[[nodiscard]] SoundLayer startLayer(const SourceLine& line);

/// Takes one line below the start of a layer; false and `error` filled when it is none.
[[nodiscard]] bool readLayerLine(const SourceLine& line, SoundLayer& layer, TextError& error);

/// Whether the layer says all that its kind needs, and ends; `line` is where it starts. The notes of a score end
/// (`hasNotes`), else the layer must die away or be let go.
[[nodiscard]] bool layerIsWhole(const SoundLayer& layer, bool hasNotes, int line, TextError& error);

}  // namespace grub
