#include "measure.h"

#include <cstdio>

#include "fourier.h"
#include "loudness.h"

namespace grub {

namespace {

constexpr double kHeardFrom = 300;  // Hz
constexpr double kHeardTo = 5000;

/// Adds up where the energy lies, in pieces, so that a track does not need one huge transform.
struct SpectrumSums {
    double energy = 0;
    double weighted = 0;
    double heard = 0;

    void add(const FourierTransform& fourier, std::span<const double> piece, int rate) {
        const std::vector<double> power = powerSpectrum(fourier, piece);
        for (std::size_t i = 0; i < power.size(); ++i) {
            const double frequency = static_cast<double>(i) * rate / static_cast<double>(piece.size());
            energy += power[i];
            weighted += power[i] * frequency;
            if (frequency > kHeardFrom && frequency < kHeardTo) heard += power[i];
        }
    }
};

SpectrumSums spectrumOf(const SoundRecording& sound) {
    constexpr std::size_t kLargestPiece = 1 << 18;
    SpectrumSums sums;
    for (const Samples& channel : sound.channels) {
        const std::size_t piece = std::min(kLargestPiece, powerOfTwo(channel.size() + 1));
        const FourierTransform fourier(piece);
        for (std::size_t start = 0; start < channel.size(); start += piece) {
            Samples part(channel.begin() + static_cast<std::ptrdiff_t>(start),
                         channel.begin() + static_cast<std::ptrdiff_t>(std::min(start + piece, channel.size())));
            part.resize(piece);
            sums.add(fourier, part, sound.rate);
        }
    }
    return sums;
}

}  // namespace

SoundMeasures measureSound(const SoundRecording& sound) {
    SoundMeasures measures;
    double peak = 0;
    double sum = 0;
    double count = 0;
    for (const Samples& channel : sound.channels) {
        peak = std::max(peak, truePeak(channel));
        for (const double sample : channel) sum += sample;
        count += static_cast<double>(channel.size());
    }
    const SpectrumSums sums = spectrumOf(sound);
    measures.duration = count / static_cast<double>(sound.channels.size()) / sound.rate;
    measures.peak = toDecibels(peak);
    measures.loudest = loudestMoment(sound.channels, sound.rate);
    measures.integrated = integratedLoudness(sound.channels, sound.rate);
    measures.centroid = sums.weighted / std::max(sums.energy, 1e-12);
    measures.heard = sums.heard / std::max(sums.energy, 1e-12);
    measures.offset = sum / std::max(count, 1.0);
    return measures;
}

std::string measureLine(const SoundMeasures& m) {
    constexpr double kMoment = 0.4;  // seconds; the loudness of a whole is that of its moments
    char text[200];
    std::snprintf(text, sizeof text,
                  "%6.2f s  peak %6.1f dB  loudest %6.1f LUFS  whole %6.1f LUFS  centroid %5.0f Hz  300-5000 Hz %.2f",
                  m.duration, m.peak, m.loudest, m.duration < kMoment ? m.loudest : m.integrated, m.centroid, m.heard);
    return text;
}

}  // namespace grub
