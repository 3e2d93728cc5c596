#pragma once

#include <string>
#include <vector>

#include "sound_file.h"

namespace grub {

/// A sound and what to call it.
struct NamedRecording {
    std::string name;
    SoundRecording sound;
};

/// Draws sounds as a PNG picture to look at: name, waveform, spectrum over time from 0 to 11 kHz, a sound a tile. A
/// tile shows at least one second; a tick stands every 100 ms (every 10 s in a track). Returns false when the file
/// cannot be written.
[[nodiscard]] bool writeSoundSheet(const std::string& path, const std::vector<NamedRecording>& sounds);

}  // namespace grub
