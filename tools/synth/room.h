#pragma once

#include <cstdint>

#include "samples.h"

namespace grub {

/// The echo of a small dull room with the energy of one sample: noise that falls to 1/e in `decay` seconds. Different
/// seeds give the two ears' own.
[[nodiscard]] Samples roomResponse(double decay, int rate, std::uint32_t seed);

}  // namespace grub
