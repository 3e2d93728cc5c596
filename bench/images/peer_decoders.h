#pragma once

#include <SDL.h>

#include <memory>

#include "picture_bytes.h"

namespace grub {

/// Width x height x 3 bytes R, G, B without padding; left uninitialised by whoever allocates them. Null after a
/// failure.
using RgbPixels = std::unique_ptr<std::uint8_t[]>;

/// Frees with SDL's own call, which also frees the pixels.
struct FreeSurface {
    void operator()(SDL_Surface* surface) const;
};
/// SDL's answer, in rows of `pitch` bytes.
using SdlSurface = std::unique_ptr<SDL_Surface, FreeSurface>;

/// What a user could have taken instead, each from a file in memory to RGB pixels.
[[nodiscard]] RgbPixels decodeWithGiflib(const Bytes& file);
[[nodiscard]] SdlSurface decodeWithSdl(const Bytes& file);
[[nodiscard]] RgbPixels decodeWithLibjpeg(const Bytes& file);

}  // namespace grub
