#include "sound_layer.h"

#include <algorithm>

#include "filters.h"
#include "samples.h"

namespace grub {

namespace {

/// Time constants until -80 dB.
constexpr double kUntilSilent = 9.2;
/// The corner of a moving filter follows its curve in steps of so many samples.
constexpr std::size_t kTuneStep = 16;
/// Of the rate: no sine is higher.
constexpr double kHighestShare = 0.45;
/// Seconds between two random pitches of a hoarse voice.
constexpr double kJitterStep = 0.007;

/// What one hit asks of the kinds below.
struct HitContext {
    const SoundLayer& layer;
    int rate;
    double pitch;   // factor
    double length;  // seconds until it is let go, 0 never
    std::uint32_t seed;

    double time(std::size_t sample) const { return static_cast<double>(sample) / rate; }
};

double envelopeAt(const HitContext& hit, double t) {
    const SoundLayer& layer = hit.layer;
    const double rise = layer.attack > 0 ? std::min(t / layer.attack, 1.0) : 1;
    const double falling = t - layer.attack - layer.hold;
    double level = 1;
    if (layer.decay > 0 && falling > 0) level = layer.sustain + (1 - layer.sustain) * std::exp(-falling / layer.decay);
    if (hit.length > 0 && t > hit.length) level *= std::exp(-(t - hit.length) / layer.release);
    const double tremolo = 1 - layer.tremoloDepth * (0.5 - 0.5 * std::cos(kTwoPi * layer.tremoloRate * t));
    return rise * level * tremolo;
}

/// Seconds until the hit has died away.
double durationOf(const HitContext& hit) {
    const SoundLayer& layer = hit.layer;
    const double falling = layer.attack + layer.hold;
    double end = 1e9;
    if (layer.decay > 0 && layer.sustain <= 0) end = falling + kUntilSilent * layer.decay;
    if (layer.kind == LayerKind::Modes) {
        double longest = 0;
        for (const BodyMode& mode : layer.modes) longest = std::max(longest, mode.decay);
        end = std::min(end, falling + kUntilSilent * longest);
    }
    if (hit.length > 0) end = std::min(end, hit.length + kUntilSilent * layer.release);
    return end;
}

/// Between two corners the pitch moves by equal intervals in equal times.
double glideAt(const std::vector<GlidePoint>& glide, double t) {
    if (glide.empty()) return 1;
    if (t <= glide.front().time) return glide.front().factor;
    for (std::size_t i = 1; i < glide.size(); ++i) {
        const GlidePoint& from = glide[i - 1];
        const GlidePoint& to = glide[i];
        if (t < to.time)
            return from.factor * std::pow(to.factor / from.factor, (t - from.time) / (to.time - from.time));
    }
    return glide.back().factor;
}

double frequencyAt(const HitContext& hit, double t) {
    const SoundLayer& layer = hit.layer;
    const double vibrato = 1 + layer.vibratoDepth * std::sin(kTwoPi * layer.vibratoRate * t);
    return layer.pitch * hit.pitch * glideAt(layer.glide, t) * vibrato;
}

/// Partials of a phase one after the other: sin(n x) follows from the two before it, and so does how far each has died
/// away.
double partialSum(const std::vector<double>& partials, std::size_t count, double phase, double dampedShare) {
    const double turn = kTwoPi * phase;
    const double twiceCos = 2 * std::cos(turn);
    double before = 0;
    double sine = std::sin(turn);
    double left = 1;
    double sum = 0;
    for (std::size_t n = 0; n < count; ++n) {
        sum += partials[n] * left * sine;
        left *= dampedShare;
        const double next = twiceCos * sine - before;
        before = sine;
        sine = next;
    }
    return sum;
}

void renderTone(const HitContext& hit, Samples& out) {
    const auto& partials = hit.layer.partials;
    double phase = 0;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double t = hit.time(i);
        const double frequency = frequencyAt(hit, t);
        // Partials beyond that would come back as wrong tones.
        const double fitting = std::min(kHighestShare * hit.rate / frequency, static_cast<double>(partials.size()));
        out[i] = partialSum(partials, static_cast<std::size_t>(fitting), phase, std::exp(-hit.layer.damp * t));
        phase += frequency / hit.rate;
        phase -= std::floor(phase);
    }
}

void renderNoise(const HitContext& hit, Samples& out) {
    const SoundLayer& layer = hit.layer;
    WhiteNoise noise(hit.seed);
    StateFilter high(layer.bandLow * hit.pitch, kFlatQ, hit.rate);
    StateFilter low(layer.bandHigh * hit.pitch, kFlatQ, hit.rate);
    for (std::size_t i = 0; i < out.size(); ++i) {
        if (!layer.glide.empty() && i % kTuneStep == 0) {
            const double factor = hit.pitch * glideAt(layer.glide, hit.time(i));
            high.tune(layer.bandLow * factor);
            low.tune(layer.bandHigh * factor);
        }
        high.push(noise.sample());
        low.push(high.high());
        out[i] = low.low();
    }
}

void renderModes(const HitContext& hit, Samples& out) {
    for (const BodyMode& mode : hit.layer.modes) {
        double phase = 0;
        for (std::size_t i = 0; i < out.size(); ++i) {
            const double t = hit.time(i);
            const double frequency = frequencyAt(hit, t) * mode.ratio;
            if (frequency > kHighestShare * hit.rate) break;
            out[i] += mode.gain * std::exp(-t / mode.decay) * std::sin(kTwoPi * phase);
            phase += frequency / hit.rate;
            phase -= std::floor(phase);
        }
    }
}

/// A saw from -1 to 1 whose step is rounded over two samples, which takes the worst of its aliasing away.
double softSaw(double phase, double step) {
    double value = 2 * phase - 1;
    if (phase < step) {
        const double t = phase / step;
        value -= t + t - t * t - 1;
    } else if (phase > 1 - step) {
        const double t = (phase - 1) / step;
        value -= t * t + t + t + 1;
    }
    return value;
}

/// What the vocal cords give: a hoarse saw with breath in it.
Samples cords(const HitContext& hit, std::size_t size) {
    const SoundLayer& layer = hit.layer;
    WhiteNoise noise(hit.seed);
    Samples source(size);
    double phase = 0;
    double before = 0;
    double after = noise.sample();
    double next = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const double t = hit.time(i);
        if (t >= next) {
            before = after;
            after = noise.sample();
            next += kJitterStep;
        }
        const double jitter = after + (before - after) * (next - t) / kJitterStep;
        const double step = frequencyAt(hit, t) * (1 + layer.jitter * jitter) / hit.rate;
        source[i] = softSaw(phase, step) + layer.breath * noise.sample();
        phase += step;
        phase -= std::floor(phase);
    }
    return source;
}

void renderVoice(const HitContext& hit, Samples& out) {
    const Samples source = cords(hit, out.size());
    for (const Formant& formant : hit.layer.formants) {
        StateFilter filter(formant.frequency, formant.frequency / formant.width, hit.rate);
        for (std::size_t i = 0; i < out.size(); ++i) {
            filter.push(source[i]);
            out[i] += formant.gain * filter.band();
        }
    }
}

Samples renderHit(const HitContext& hit);

/// Each grain is a short noise in a narrow band around a random place of the layer's.
Samples renderGrains(const HitContext& hit) {
    const SoundLayer& layer = hit.layer;
    WhiteNoise random(hit.seed);
    Samples out;
    for (int n = 0; n < static_cast<int>(layer.count); ++n) {
        SoundLayer grain;
        grain.kind = LayerKind::Noise;
        grain.attack = 0.001;
        grain.decay = layer.decay;
        const double centre = layer.bandLow * std::pow(layer.bandHigh / layer.bandLow, random.share());
        grain.bandLow = centre * 0.7;
        grain.bandHigh = centre * 1.4;
        const double time = -layer.spread * std::log(1 - random.share());
        const double fading = layer.fade > 0 ? std::exp(-time / layer.fade) : 1;
        const double gain = (0.3 + 0.8 * random.share()) * fading;
        const auto start = static_cast<std::size_t>(time * hit.rate);
        const Samples sound =
            renderHit({grain, hit.rate, hit.pitch, 0, hit.seed * 1000 + static_cast<std::uint32_t>(n)});
        out.resize(std::max(out.size(), start + sound.size()));
        addSamples(out, start, sound, gain);
    }
    return out;
}

Samples renderHit(const HitContext& hit) {
    if (hit.layer.kind == LayerKind::Grains) return renderGrains(hit);
    Samples out(static_cast<std::size_t>(durationOf(hit) * hit.rate));
    switch (hit.layer.kind) {
        case LayerKind::Tone: renderTone(hit, out); break;
        case LayerKind::Noise: renderNoise(hit, out); break;
        case LayerKind::Modes: renderModes(hit, out); break;
        case LayerKind::Voice: renderVoice(hit, out); break;
        case LayerKind::Grains: break;
    }
    for (std::size_t i = 0; i < out.size(); ++i) out[i] *= envelopeAt(hit, hit.time(i));
    return out;
}

}  // namespace

Samples renderLayer(const SoundLayer& layer, int rate, double pitch, double length, std::uint32_t seed) {
    static const std::vector<LayerHit> once(1);
    Samples out;
    seed += static_cast<std::uint32_t>(layer.seed) * 7919;
    for (const LayerHit& hit : layer.hits.empty() ? once : layer.hits) {
        const double until = length > 0 ? length : layer.length;
        const Samples sound = renderHit({layer, rate, pitch * hit.pitch, until, seed++});
        const auto start = static_cast<std::size_t>(std::lround(hit.time * rate));
        out.resize(std::max(out.size(), start + sound.size()));
        addSamples(out, start, sound, hit.gain * layer.gain);
    }
    return out;
}

}  // namespace grub
