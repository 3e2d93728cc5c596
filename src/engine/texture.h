#pragma once

#include <cstdint>

#include "colour.h"

namespace grub {

/// How `Texture::upload` turns a picture. The values are stored in game data; turns are clockwise.
enum class TextureTransform : std::uint32_t {
    Identity = 0,
    Rotate90 = 1,
    Rotate180 = 2,
    Rotate270 = 4,
    FlipVertical = 8,
    FlipHorizontal = 16,
};

/// A picture that the renderer can draw. Made by `Renderer::createTexture`; the caller owns it.
/// Creation and uploads may come from any thread; drawing comes from the game thread.
class Texture {
public:
    virtual ~Texture() = default;

    /// A new texture with the same pixels, sizes and colour key, owned by the caller; not valid when the copy failed.
    [[nodiscard]] virtual Texture* clone() const = 0;
    /// Whether the device has room for the picture: an invalid texture refuses uploads and draws nothing.
    [[nodiscard]] virtual bool isValid() const = 0;
    /// Takes width x height pixels of 3 bytes R, G, B, rows top-down, and as many alpha bytes (null: the colour key
    /// decides, or everything is opaque). A quarter turn swaps width and height; it is refused for a picture whose
    /// backing is not square. False leaves the old pixels.
    virtual bool upload(const std::uint8_t* rgb, TextureTransform transform, const std::uint8_t* alpha) = 0;
    /// This colour becomes transparent in the next upload that brings no alpha.
    virtual void setColourKey(Colour key) = 0;
    /// Picture size in pixels (not that of the backing, which is a power of two).
    [[nodiscard]] virtual std::uint16_t width() const = 0;
    [[nodiscard]] virtual std::uint16_t height() const = 0;
};

}  // namespace grub
