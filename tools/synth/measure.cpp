#include "measure.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <numeric>

#include "fourier.h"

namespace grub {

// ---- loudness

namespace {

/// Second-order filter by its coefficients; a0 is 1.
struct Biquad {
    double b0, b1, b2, a1, a2;

    void apply(Samples& sound) const {
        double x1 = 0, x2 = 0, y1 = 0, y2 = 0;
        for (double& sample : sound) {
            const double x = sample;
            const double y = b0 * x + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2;
            x2 = x1;
            x1 = x;
            y2 = y1;
            y1 = y;
            sample = y;
        }
    }
};

/// The shelf of the standard: the head lifts what is above 1.7 kHz by 4 dB. Its analogue values, for any rate.
Biquad headShelf(int rate) {
    const double k = std::tan(std::numbers::pi * 1681.974450955533 / rate);
    const double q = 0.7071752369554196;
    const double high = fromDecibels(3.999843853973347);
    const double middle = std::pow(high, 0.4996667741545416);
    const double a0 = 1 + k / q + k * k;
    return {(high + middle * k / q + k * k) / a0, 2 * (k * k - high) / a0, (high - middle * k / q + k * k) / a0,
            2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0};
}

/// The high pass of the standard: 38 Hz.
Biquad lowCut(int rate) {
    const double k = std::tan(std::numbers::pi * 38.13547087602444 / rate);
    const double q = 0.5003270373238773;
    const double a0 = 1 + k / q + k * k;
    return {1, -2, 1, 2 * (k * k - 1) / a0, (1 - k / q + k * k) / a0};
}

/// Weighted energy of each tenth of a second, all channels together; `extra` tenths of silence before and behind.
std::vector<double> tenths(std::span<const Samples> channels, int rate, std::size_t extra) {
    const auto step = static_cast<std::size_t>(rate / 10);
    std::vector<double> energy;
    for (Samples sound : channels) {
        sound.insert(sound.begin(), extra * step, 0.0);
        sound.resize(sound.size() + extra * step);
        headShelf(rate).apply(sound);
        lowCut(rate).apply(sound);
        energy.resize(std::max(energy.size(), sound.size() / step));
        for (std::size_t i = 0; i < (sound.size() / step) * step; ++i) energy[i / step] += sound[i] * sound[i];
    }
    for (double& value : energy) value /= static_cast<double>(step);
    return energy;
}

/// Mean energy of each 400 ms, one a tenth of a second.
std::vector<double> moments(const std::vector<double>& energy) {
    std::vector<double> means;
    for (std::size_t i = 0; i + 4 <= energy.size(); ++i)
        means.push_back((energy[i] + energy[i + 1] + energy[i + 2] + energy[i + 3]) / 4);
    return means;
}

double toLufs(double energy) { return -0.691 + 10 * std::log10(std::max(energy, 1e-12)); }

/// Mean of the moments above `floor`.
double meanAbove(const std::vector<double>& means, double floor) {
    double sum = 0;
    int count = 0;
    for (const double mean : means) {
        if (toLufs(mean) < floor) continue;
        sum += mean;
        ++count;
    }
    return count > 0 ? sum / count : 0;
}

/// Between two samples the curve is looked at in three places.
constexpr std::size_t kPlaces = 4;
/// So many samples on either side make a value between two.
constexpr std::size_t kSpan = 8;
using Interpolation = std::array<std::array<double, 2 * kSpan>, kPlaces>;

/// A sinc under a raised cosine, for each place; the first is the sample itself.
Interpolation interpolation() {
    Interpolation weights{};
    for (std::size_t place = 0; place < kPlaces; ++place) {
        for (std::size_t i = 0; i < 2 * kSpan; ++i) {
            const double t = static_cast<double>(i) - (kSpan - 1) - static_cast<double>(place) / kPlaces;
            const double x = std::numbers::pi * t;
            const double sinc = std::abs(t) < 1e-9 ? 1 : std::sin(x) / x;
            weights[place][i] = sinc * (0.5 + 0.5 * std::cos(x / kSpan));
        }
    }
    return weights;
}

}  // namespace

double loudestMoment(std::span<const Samples> channels, int rate) {
    const std::vector<double> means = moments(tenths(channels, rate, 4));
    return means.empty() ? toLufs(0) : toLufs(*std::max_element(means.begin(), means.end()));
}

double integratedLoudness(std::span<const Samples> channels, int rate) {
    const std::vector<double> means = moments(tenths(channels, rate, 0));
    const double loud = meanAbove(means, -70);
    return toLufs(meanAbove(means, toLufs(loud) - 10));
}

double truePeak(std::span<const double> sound) {
    static const Interpolation kWeights = interpolation();
    Samples padded(kSpan);
    padded.insert(padded.end(), sound.begin(), sound.end());
    padded.resize(padded.size() + kSpan);
    double peak = 0;
    for (std::size_t start = 0; start + 2 * kSpan <= padded.size(); ++start) {
        for (const auto& weights : kWeights)
            peak =
                std::max(peak, std::abs(std::inner_product(weights.begin(), weights.end(),
                                                           padded.begin() + static_cast<std::ptrdiff_t>(start), 0.0)));
    }
    return peak;
}

// ---- all measures

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
