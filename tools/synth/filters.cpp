#include "filters.h"

#include <deque>

#include "samples.h"

namespace grub {

namespace {

/// A peak is seen coming, and the way back takes as long. Seconds; more than half a turn of the deepest note.
constexpr double kReach = 0.015;

/// The gain that each sample needs by itself.
Samples neededGain(const std::vector<Samples>& channels, double limit) {
    Samples gain(channels[0].size());
    for (std::size_t i = 0; i < gain.size(); ++i) {
        double peak = limit;
        for (const Samples& channel : channels) peak = std::max(peak, std::abs(channel[i]));
        gain[i] = limit / peak;
    }
    return gain;
}

/// For each sample of a ring the least of those up to `reach` before and behind it.
Samples leastAround(const Samples& ring, std::size_t reach) {
    const std::size_t size = ring.size();
    Samples least(size);
    std::deque<std::size_t> rising;  // places of values, each less than those behind it; counted on past the ring's end
    for (std::size_t i = 0; i < size + 2 * reach; ++i) {
        const double value = ring[(i + size - reach) % size];
        while (!rising.empty() && ring[(rising.back() + size - reach) % size] >= value) rising.pop_back();
        rising.push_back(i);
        if (i < 2 * reach) continue;
        while (rising.front() + 2 * reach < i) rising.pop_front();
        least[i - 2 * reach] = ring[(rising.front() + size - reach) % size];
    }
    return least;
}

/// For each sample of a ring the mean of those up to `reach` before and behind it.
Samples meanAround(const Samples& ring, std::size_t reach) {
    const std::size_t size = ring.size();
    const auto width = static_cast<double>(2 * reach + 1);
    Samples mean(size);
    double sum = 0;
    for (std::size_t i = 0; i <= 2 * reach; ++i) sum += ring[(i + size - reach) % size];
    for (std::size_t i = 0; i < size; ++i) {
        mean[i] = sum / width;
        sum += ring[(i + reach + 1) % size] - ring[(i + size - reach) % size];
    }
    return mean;
}

}  // namespace

void limitLoop(std::vector<Samples>& channels, double limit, int rate) {
    // The mean of numbers that are all small enough for a peak is small enough too.
    const auto reach = std::min(static_cast<std::size_t>(kReach * rate), channels[0].size() / 4);
    const Samples gain = meanAround(leastAround(neededGain(channels, limit), reach), reach);
    for (Samples& channel : channels)
        for (std::size_t i = 0; i < channel.size(); ++i) channel[i] *= gain[i];
}

void cutLow(Samples& sound, double corner, int rate) {
    StateFilter filter(corner, kFlatQ, rate);
    for (double& sample : sound) {
        filter.push(sample);
        sample = filter.high();
    }
}

void cutHigh(Samples& sound, double corner, int rate) {
    StateFilter filter(corner, kFlatQ, rate);
    for (double& sample : sound) {
        filter.push(sample);
        sample = filter.low();
    }
}

Samples roomResponse(double decay, int rate, std::uint32_t seed) {
    constexpr double kDullAbove = 4500;  // Hz
    WhiteNoise noise(seed);
    Samples response(static_cast<std::size_t>(4 * decay * rate));
    for (std::size_t i = 0; i < response.size(); ++i)
        response[i] = noise.sample() * std::exp(-static_cast<double>(i) / (decay * rate));
    cutHigh(response, kDullAbove, rate);
    double energy = 0;
    for (const double sample : response) energy += sample * sample;
    for (double& sample : response) sample /= std::sqrt(energy);
    return response;
}

}  // namespace grub
