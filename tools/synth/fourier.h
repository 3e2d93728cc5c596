#pragma once

#include <complex>
#include <vector>

#include "samples.h"

namespace grub {

/// The discrete Fourier transform in place; the size is a power of two. `inverse` also divides by the size.
void transform(std::vector<std::complex<double>>& values, bool inverse);

/// The smallest power of two that is at least `size`.
[[nodiscard]] std::size_t powerOfTwo(std::size_t size);

/// Energy in each bin from 0 Hz to half the rate of a piece of sound, whose size is a power of two.
[[nodiscard]] std::vector<double> powerSpectrum(std::span<const double> piece);

/// `sound` heard through the echo `response`: as many samples as both together, less one.
[[nodiscard]] Samples convolve(std::span<const double> sound, std::span<const double> response);

}  // namespace grub
