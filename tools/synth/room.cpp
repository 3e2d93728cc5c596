#include "room.h"

#include "filters.h"
#include "white_noise.h"

namespace grub {

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
