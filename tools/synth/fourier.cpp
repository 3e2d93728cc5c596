#include "fourier.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace grub {

namespace {

using Complex = std::complex<double>;

/// Sorts the values by their mirrored index, as the butterflies below want them.
void mirrorOrder(std::vector<Complex>& values) {
    for (std::size_t i = 1, j = 0; i < values.size(); ++i) {
        std::size_t bit = values.size() / 2;
        for (; (j & bit) != 0; bit /= 2) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(values[i], values[j]);
    }
}

}  // namespace

void transform(std::vector<Complex>& values, bool inverse) {
    mirrorOrder(values);
    const std::size_t size = values.size();
    std::vector<Complex> turns(size / 2);
    for (std::size_t i = 0; i < turns.size(); ++i) {
        const double angle = (inverse ? kTwoPi : -kTwoPi) * static_cast<double>(i) / static_cast<double>(size);
        turns[i] = {std::cos(angle), std::sin(angle)};
    }
    for (std::size_t half = 1; half < size; half *= 2) {
        for (std::size_t start = 0; start < size; start += 2 * half) {
            for (std::size_t i = 0; i < half; ++i) {
                const Complex a = values[start + i];
                const Complex v = values[start + half + i];
                const Complex w = turns[i * (size / (2 * half))];
                const Complex b{v.real() * w.real() - v.imag() * w.imag(), v.real() * w.imag() + v.imag() * w.real()};
                values[start + i] = a + b;
                values[start + half + i] = a - b;
            }
        }
    }
    if (!inverse) return;
    for (Complex& value : values) value /= static_cast<double>(size);
}

std::size_t powerOfTwo(std::size_t size) { return std::bit_ceil(size); }

std::vector<double> powerSpectrum(std::span<const double> piece) {
    std::vector<Complex> values(piece.begin(), piece.end());
    transform(values, false);
    std::vector<double> power(values.size() / 2 + 1);
    for (std::size_t i = 0; i < power.size(); ++i) power[i] = std::norm(values[i % values.size()]);
    return power;
}

/// Piece by piece, each as long as the response, so that a whole tune needs little memory.
Samples convolve(std::span<const double> sound, std::span<const double> response) {
    const std::size_t piece = powerOfTwo(std::max<std::size_t>(response.size(), 1024));
    std::vector<Complex> echo(response.begin(), response.end());
    echo.resize(2 * piece);
    transform(echo, false);
    Samples out(sound.size() + response.size() - 1);
    for (std::size_t start = 0; start < sound.size(); start += piece) {
        const auto part = sound.subspan(start, std::min(piece, sound.size() - start));
        std::vector<Complex> values(part.begin(), part.end());
        values.resize(2 * piece);
        transform(values, false);
        for (std::size_t i = 0; i < values.size(); ++i) {
            const Complex a = values[i];
            const Complex b = echo[i];
            values[i] = {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
        }
        transform(values, true);
        for (std::size_t i = 0; i < values.size() && start + i < out.size(); ++i) out[start + i] += values[i].real();
    }
    return out;
}

}  // namespace grub
