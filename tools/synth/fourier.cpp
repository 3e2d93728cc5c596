#include "fourier.h"

#include <algorithm>
#include <bit>

namespace grub {

namespace {

using Complex = std::complex<double>;

/// Plain multiplication; std::complex also asks for infinities.
Complex product(Complex a, Complex b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

/// Sorts the values by their mirrored index, as the butterflies want them.
void mirrorOrder(std::vector<Complex>& values) {
    for (std::size_t i = 1, j = 0; i < values.size(); ++i) {
        std::size_t bit = values.size() / 2;
        for (; (j & bit) != 0; bit /= 2) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(values[i], values[j]);
    }
}

}  // namespace

FourierTransform::FourierTransform(std::size_t size) {
    for (std::size_t half = 1; half < size; half *= 2) {
        for (std::size_t i = 0; i < half; ++i) {
            const double angle = -std::numbers::pi * static_cast<double>(i) / static_cast<double>(half);
            turns_.emplace_back(std::cos(angle), std::sin(angle));
        }
    }
}

void FourierTransform::forward(std::vector<Complex>& values) const {
    mirrorOrder(values);
    for (std::size_t half = 1; half < values.size(); half *= 2) {
        const Complex* turns = turns_.data() + (half - 1);
        for (std::size_t start = 0; start < values.size(); start += 2 * half) {
            for (std::size_t i = start; i < start + half; ++i) {
                const Complex turned = product(values[i + half], turns[i - start]);
                values[i + half] = values[i] - turned;
                values[i] += turned;
            }
        }
    }
}

void FourierTransform::backward(std::vector<Complex>& values) const {
    forward(values);
    std::reverse(values.begin() + 1, values.end());
}

std::size_t powerOfTwo(std::size_t size) { return std::bit_ceil(size); }

std::vector<double> powerSpectrum(const FourierTransform& fourier, std::span<const double> piece) {
    std::vector<Complex> values(piece.begin(), piece.end());
    fourier.forward(values);
    std::vector<double> power(values.size() / 2 + 1);
    for (std::size_t i = 0; i < power.size(); ++i) power[i] = std::norm(values[i]);
    return power;
}

/// Piece by piece, each as long as the response, so that a whole tune needs little memory. Two pieces go at once: the
/// response is real, so one stays in the real parts and the other in the imaginary parts.
Samples convolve(std::span<const double> sound, std::span<const double> response) {
    const std::size_t piece = powerOfTwo(std::max<std::size_t>(response.size(), 1024));
    const FourierTransform fourier(2 * piece);
    std::vector<Complex> echo(response.begin(), response.end());
    echo.resize(2 * piece);
    fourier.forward(echo);
    for (Complex& value : echo) value /= static_cast<double>(2 * piece);
    Samples out(sound.size() + response.size() - 1);
    const auto at = [&](std::size_t i) { return i < sound.size() ? sound[i] : 0.0; };
    for (std::size_t start = 0; start < sound.size(); start += 2 * piece) {
        std::vector<Complex> values(2 * piece);
        for (std::size_t i = 0; i < piece; ++i) values[i] = {at(start + i), at(start + piece + i)};
        fourier.forward(values);
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = product(values[i], echo[i]);
        fourier.backward(values);
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (start + i < out.size()) out[start + i] += values[i].real();
            if (start + piece + i < out.size()) out[start + piece + i] += values[i].imag();
        }
    }
    return out;
}

}  // namespace grub
