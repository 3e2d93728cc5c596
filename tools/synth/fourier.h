#pragma once

#include <complex>
#include <vector>

#include "samples.h"

namespace grub {

/// The discrete Fourier transform of one size, a power of two.
class FourierTransform {
public:
    /// Prepares the tables for a size of at least 2.
    explicit FourierTransform(std::size_t size);

    /// In place; `values` has the size. Both ways together multiply by the size.
    void forward(std::vector<std::complex<double>>& values) const;
    void backward(std::vector<std::complex<double>>& values) const;

private:
    std::vector<std::complex<double>> turns_;  // for each pass of the butterflies, one behind the other
};

/// The smallest power of two that is at least `size`.
[[nodiscard]] std::size_t powerOfTwo(std::size_t size);

/// Energy in each bin from 0 Hz to half the rate of a piece of sound, whose size is that of the transform.
[[nodiscard]] std::vector<double> powerSpectrum(const FourierTransform& fourier, std::span<const double> piece);

/// `sound` heard through the echo `response`: as many samples as both together, less one.
[[nodiscard]] Samples convolve(std::span<const double> sound, std::span<const double> response);

}  // namespace grub
