#pragma once

#include <cstdint>

namespace grub {

/// The generator of one world, so that music, transitions and threads never move the play. The formula is that of the
/// process's own sequence, and so is the range.
class WorldRandom {
public:
    /// The largest number that `next` gives.
    static constexpr int kMax = 32767;

    /// The sequence of this seed; equal seeds give equal numbers everywhere.
    explicit WorldRandom(std::uint32_t seed) : state_(seed) {}

    /// 0 to kMax.
    int next() {
        state_ = state_ * 214013U + 2531011U;
        return static_cast<int>((state_ >> 16U) & 0x7FFFU);
    }
    /// Where the sequence stands: for traces and hashes.
    [[nodiscard]] std::uint32_t state() const { return state_; }

    friend bool operator==(const WorldRandom&, const WorldRandom&) = default;

private:
    std::uint32_t state_;
};

}  // namespace grub
