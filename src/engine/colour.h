#pragma once

#include <cstdint>

namespace grub {

/// An opaque colour as three bytes, as pictures and colour keys store it.
struct Colour {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;

    friend constexpr bool operator==(Colour, Colour) = default;
};

/// The engine's shared colours. `kBrown` is the colour key of the characters and of the panel picture.
inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kWhite{255, 255, 255};
inline constexpr Colour kBlue{0, 0, 255};
inline constexpr Colour kBrown{80, 54, 25};

}  // namespace grub
