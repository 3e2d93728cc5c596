#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include <d3d8.h>

#include "d3d8/software_texture.h"

namespace platform {

/// An upright rectangle: its edges on the target in pixels, and the texture coordinates at those edges (0 to 1).
/// The centre of pixel (i, j) lies at (i + 0.5, j + 0.5); a centre on the left or top edge belongs to the rectangle.
struct TexturedRect {
    float left;
    float top;
    float right;
    float bottom;
    float uLeft;
    float vTop;
    float uRight;
    float vBottom;
};

/// The picture that the device draws into: 32 bits a pixel, 0xXXRRGGBB, rows top-down. Used by one thread at a time.
class BackBuffer {
public:
    /// The buffer starts black.
    BackBuffer(int width, int height);

    /// Fills a rectangle, cut at the edges of the buffer.
    void fill(const D3DRECT& rect, D3DCOLOR colour);
    /// Lays the texture over the pixels of `rect`, its alpha times opacity / 255. D3DERR_INVALIDCALL when texels and
    /// pixels do not lie one to one, E_OUTOFMEMORY when memory ran out.
    HRESULT draw(SoftwareTexture& texture, const TexturedRect& rect, std::uint8_t opacity);

    [[nodiscard]] int width() const { return width_; }
    [[nodiscard]] int height() const { return height_; }
    /// The rows follow each other without a gap.
    [[nodiscard]] std::span<const std::uint32_t> pixels() const { return pixels_; }

private:
    struct Axis;

    void layTexels(const TextureImage& image, D3DRECT target, LONG texelX, LONG texelY, std::uint8_t opacity);
    pixman_image_t* maskOf(std::uint8_t opacity);
    std::uint32_t* pixelAt(LONG x, LONG y) { return pixels_.data() + std::ptrdiff_t{y} * width_ + x; }

    const int width_;
    const int height_;
    std::vector<std::uint32_t> pixels_;
    PixmanImage target_;
    std::array<PixmanImage, 256> masks_;  // one for each opacity below 255, made at its first use
};

}  // namespace platform
