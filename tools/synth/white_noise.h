#pragma once

#include <cstdint>

namespace grub {

/// Random numbers made of integers alone: the same seed gives the same sequence on every machine.
class WhiteNoise {
public:
    /// Seeds that lie side by side give sequences that have nothing in common.
    explicit WhiteNoise(std::uint32_t seed) : state_(seed * 0x9e3779b97f4a7c15ULL + 0x632be59bd9b4e019ULL) {}

    /// Evenly spread from 0 up to, not including, 1.
    double share() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return static_cast<double>(state_ >> 11) / 9007199254740992.0;
    }
    /// Evenly spread from -1 to 1.
    double sample() { return 2 * share() - 1; }

private:
    std::uint64_t state_;
};

}  // namespace grub
