#pragma once

#include <cstdint>
#include <vector>

#include "samples.h"

namespace grub {

/// How a layer makes its sound.
enum class LayerKind {
    Tone,    ///< partials of one pitch, each a sine
    Noise,   ///< noise through a band
    Modes,   ///< a struck body: sines that each die away in their own time
    Voice,   ///< a saw and breath through the formants of a throat
    Grains,  ///< many short noises, scattered
};

/// One start of a layer within its sound: seconds, what its pitches are multiplied by, amplitude.
struct LayerHit {
    double time = 0;
    double pitch = 1;
    double gain = 1;
};

/// A corner of a pitch curve: seconds from the start of the hit, factor of the pitch.
struct GlidePoint {
    double time = 0;
    double factor = 1;
};

/// A mode of a struck body: factor of the pitch, amplitude, seconds until it has fallen to 1/e.
struct BodyMode {
    double ratio = 1;
    double gain = 1;
    double decay = 0.1;
};

/// A resonance of a throat: Hz, width in Hz, amplitude.
struct Formant {
    double frequency = 1000;
    double width = 100;
    double gain = 1;
};

/// A layer of a sound, as its source describes it (docs/formats/sound-sources.md). Times are seconds, gains amplitudes.
struct SoundLayer {
    LayerKind kind = LayerKind::Tone;
    std::vector<LayerHit> hits;
    double gain = 1;
    double pan = 0;  ///< -1 left to 1 right; heard in music only

    double attack = 0.002;
    double hold = 0;
    double decay = 0;  ///< time until 1/e; 0 stays
    double sustain = 0;
    double length = 0;  ///< until it is let go; 0 is never
    double release = 0.02;

    double pitch = 1;  ///< Hz
    std::vector<GlidePoint> glide;
    double vibratoRate = 0;
    double vibratoDepth = 0;
    double tremoloRate = 0;
    double tremoloDepth = 0;

    std::vector<double> partials;
    double damp = 0;  ///< how much faster each further partial dies away, per second
    double bandLow = 0;
    double bandHigh = 0;
    std::vector<BodyMode> modes;
    std::vector<Formant> formants;
    double breath = 0;
    double jitter = 0;

    double count = 0;   ///< grains
    double spread = 0;  ///< mean time of a grain
    double fade = 0;    ///< time in which later grains get quieter by 1/e; 0 is never
    double seed = 0;
};

/// One sounding of a layer with all its hits, from the first attack to where nothing is left of it (-80 dB).
/// `pitch` multiplies every frequency; `length` in seconds lets it go, 0 leaves that to the layer.
[[nodiscard]] Samples renderLayer(const SoundLayer& layer, int rate, double pitch, double length, std::uint32_t seed);

}  // namespace grub
