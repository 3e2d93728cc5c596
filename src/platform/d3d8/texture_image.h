#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>

#include <d3d8.h>
#include <pixman.h>

namespace platform {

/// Gives an image back to pixman.
struct ReleasePixmanImage {
    void operator()(pixman_image_t* image) const noexcept { pixman_image_unref(image); }
};
using PixmanImage = std::unique_ptr<pixman_image_t, ReleasePixmanImage>;

/// Memory from malloc or calloc: a refusal is null, and zeroed pages that nobody touches cost nothing.
struct FreeMemory {
    void operator()(void* memory) const noexcept { std::free(memory); }
};
template <class T>
using HeapArray = std::unique_ptr<T[], FreeMemory>;

/// Texels as they were written, in one of the two texture formats.
struct TexelView {
    const std::uint8_t* bits;
    UINT width;
    UINT height;
    UINT pitch;  ///< bytes from row to row
    D3DFORMAT format;
};

/// A texture as the rasteriser wants it: the smallest box that holds everything visible, colours multiplied by alpha.
struct TextureImage {
    D3DRECT visible{};                      ///< in texels; empty when the texture shows nothing
    bool opaque = false;                    ///< every texel of the box has alpha 255
    const std::uint32_t* pixels = nullptr;  ///< first texel of the box, 0xAARRGGBB
    UINT stride = 0;                        ///< texels from row to row
    PixmanImage image;                      ///< the same pixels; null when nothing is visible
    HeapArray<std::uint32_t> copy;          ///< owns the pixels, unless they are those of the texture

    /// Whether drawing it would change nothing.
    [[nodiscard]] bool empty() const { return visible.x1 >= visible.x2; }
};

/// Makes the image. An opaque A8R8G8B8 texture is shown from its own bits, which have to stay where they are. Nothing
/// when memory ran out.
std::optional<TextureImage> makeTextureImage(const TexelView& texels);

}  // namespace platform
