#pragma once

#include <SDL.h>

#include <memory>

#include "bytes.h"

namespace grub {

/// Width x height x 3 bytes R, G, B without padding; null after a failure. They are not zeroed before decoding, which
/// would cost time.
using RgbPixels = std::unique_ptr<std::uint8_t[]>;

/// SDL frees the surface together with its pixels.
struct FreeSurface {
    void operator()(SDL_Surface* surface) const;
};
/// A picture that SDL decoded, in rows of `pitch` bytes.
using SdlSurface = std::unique_ptr<SDL_Surface, FreeSurface>;

/// The libraries that a user could have taken instead: each decodes a file in memory to RGB pixels.
[[nodiscard]] RgbPixels decodeWithGiflib(const Bytes& file);
[[nodiscard]] SdlSurface decodeWithSdl(const Bytes& file);
[[nodiscard]] RgbPixels decodeWithLibjpeg(const Bytes& file);

}  // namespace grub
