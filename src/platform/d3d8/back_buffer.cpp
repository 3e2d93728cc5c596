#include "d3d8/back_buffer.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace platform {

// One direction of a rectangle: which pixels it covers, and which texel the centre of each of them meets.
struct BackBuffer::Axis {
    LONG first;      // covered pixels, cut at the buffer's edges
    LONG end;        // behind the last
    float texel;     // texel position at the centre of pixel `first`
    float perPixel;  // texels from a pixel to the next

    Axis(float low, float high, float lowTexel, float highTexel, int pixels)
        : first(pixelFrom(low, pixels)), end(pixelFrom(high, pixels)), perPixel((highTexel - lowTexel) / (high - low)) {
        texel = lowTexel + (static_cast<float>(first) + 0.5F - low) * perPixel;
    }

    [[nodiscard]] bool empty() const { return first >= end; }
    [[nodiscard]] LONG texelAt(LONG pixel) const {
        // A texture coordinate is rounded, so a position meant to be whole may lie just below.
        constexpr float kRounding = 1.0F / 1024;
        return static_cast<LONG>(std::floor(texel + static_cast<float>(pixel - first) * perPixel + kRounding));
    }
    // Whether each pixel meets the next texel of a texture of this many.
    [[nodiscard]] bool isOneToOne(UINT texels) const {
        return std::abs(perPixel - 1.0F) < 1e-5F && texelAt(first) >= 0 && texelAt(end - 1) < static_cast<LONG>(texels);
    }

private:
    // The first pixel whose centre is not before `edge`.
    static LONG pixelFrom(float edge, int pixels) {
        return static_cast<LONG>(std::ceil(std::clamp(edge - 0.5F, 0.0F, static_cast<float>(pixels))));
    }
};

BackBuffer::BackBuffer(int width, int height)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      target_(pixman_image_create_bits_no_clear(PIXMAN_x8r8g8b8, width, height, pixels_.data(),
                                                width * static_cast<int>(sizeof(std::uint32_t)))) {}

void BackBuffer::fill(const D3DRECT& rect, D3DCOLOR colour) {
    const LONG left = std::max<LONG>(rect.x1, 0);
    const LONG top = std::max<LONG>(rect.y1, 0);
    const LONG width = std::min<LONG>(rect.x2, width_) - left;
    const LONG height = std::min<LONG>(rect.y2, height_) - top;
    if (width <= 0 || height <= 0) return;
    constexpr int kBitsPerPixel = 32;
    pixman_fill(pixels_.data(), width_, kBitsPerPixel, left, top, width, height, colour);
}

HRESULT BackBuffer::draw(SoftwareTexture& texture, const TexturedRect& rect, std::uint8_t opacity) {
    const auto columns = static_cast<float>(texture.width());
    const auto rows = static_cast<float>(texture.height());
    const Axis across(rect.left, rect.right, rect.uLeft * columns, rect.uRight * columns, width_);
    const Axis down(rect.top, rect.bottom, rect.vTop * rows, rect.vBottom * rows, height_);
    if (across.empty() || down.empty() || opacity == 0) return D3D_OK;

    if (!across.isOneToOne(texture.width()) || !down.isOneToOne(texture.height())) return D3DERR_INVALIDCALL;
    const bool shown = texture.show([&](const TextureImage& image) {
        layTexels(image, {across.first, down.first, across.end, down.end}, across.texelAt(across.first),
                  down.texelAt(down.first), opacity);
    });
    return shown ? D3D_OK : E_OUTOFMEMORY;
}

// Pixel (target.x1, target.y1) meets the texel given, the others follow. Only what is visible costs time.
void BackBuffer::layTexels(const TextureImage& image, D3DRECT target, LONG texelX, LONG texelY, std::uint8_t opacity) {
    const LONG toPixelX = target.x1 - texelX;
    const LONG toPixelY = target.y1 - texelY;
    const LONG left = std::max(target.x1, image.visible.x1 + toPixelX);
    const LONG top = std::max(target.y1, image.visible.y1 + toPixelY);
    const LONG width = std::min(target.x2, image.visible.x2 + toPixelX) - left;
    const LONG height = std::min(target.y2, image.visible.y2 + toPixelY) - top;
    if (width <= 0 || height <= 0) return;

    const LONG imageX = left - toPixelX - image.visible.x1;
    const LONG imageY = top - toPixelY - image.visible.y1;
    if (image.opaque && opacity == 255) {
        const std::uint32_t* from = image.pixels + std::ptrdiff_t{imageY} * image.stride + imageX;
        for (LONG y = 0; y < height; ++y, from += image.stride) {
            std::memcpy(pixelAt(left, top + y), from, static_cast<std::size_t>(width) * sizeof *from);
        }
        return;
    }
    pixman_image_composite32(PIXMAN_OP_OVER, image.image.get(), maskOf(opacity), target_.get(), imageX, imageY, 0, 0,
                             left, top, width, height);
}

pixman_image_t* BackBuffer::maskOf(std::uint8_t opacity) {
    if (opacity == 255) return nullptr;
    PixmanImage& mask = masks_[opacity];
    if (mask == nullptr) {
        const auto alpha = static_cast<std::uint16_t>(opacity * 0x101);
        const pixman_color_t colour{alpha, alpha, alpha, alpha};
        mask.reset(pixman_image_create_solid_fill(&colour));
    }
    return mask.get();
}

}  // namespace platform
