#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>

#include <d3d8.h>
#include <pixman.h>

#include "kernel/objects.h"

namespace platform {

/// Gives an image back to pixman.
struct ReleasePixmanImage {
    void operator()(pixman_image_t* image) const noexcept { pixman_image_unref(image); }
};
using PixmanImage = std::unique_ptr<pixman_image_t, ReleasePixmanImage>;

/// Memory from malloc or calloc: null when the system refuses, and zeroed pages cost nothing until they are touched.
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

/// A texture in main memory. It keeps the bits as they were written; what the rasteriser needs is made when the
/// texture is first drawn after it was written. A lock lets one thread write while another draws.
class SoftwareTexture final : public ComObject<IDirect3DTexture8> {
public:
    /// A transparent black texture with one reference, which the caller owns; null when memory is short.
    /// The format is A8R8G8B8 or A4R4G4B4.
    static SoftwareTexture* create(UINT width, UINT height, D3DFORMAT format);

    HRESULT LockRect(UINT level, D3DLOCKED_RECT* locked, const RECT* rect, DWORD flags) override;
    HRESULT UnlockRect(UINT level) override;

    /// Texels.
    [[nodiscard]] UINT width() const { return width_; }
    [[nodiscard]] UINT height() const { return height_; }

    /// Calls `paint(const TextureImage&)` and keeps writers out meanwhile. Does not call it when the texture is empty
    /// or locked. False when memory ran out.
    template <class Paint>
    bool show(Paint&& paint) {
        const std::lock_guard guard(mutex_);
        if (locked_) return true;
        if (!image_) image_ = makeTextureImage(texels());
        if (!image_) return false;
        if (!image_->empty()) paint(*image_);
        return true;
    }

private:
    SoftwareTexture(UINT width, UINT height, D3DFORMAT format, HeapArray<std::uint8_t> bits);

    [[nodiscard]] UINT bytesPerTexel() const { return format_ == D3DFMT_A8R8G8B8 ? 4 : 2; }
    [[nodiscard]] UINT pitch() const { return width_ * bytesPerTexel(); }
    [[nodiscard]] TexelView texels() const { return {bits_.get(), width_, height_, pitch(), format_}; }

    const UINT width_;
    const UINT height_;
    const D3DFORMAT format_;
    std::mutex mutex_;  // guards everything below; the bits belong to the locking thread between lock and unlock
    HeapArray<std::uint8_t> bits_;
    std::optional<TextureImage> image_;
    bool locked_ = false;
    DWORD lockFlags_ = 0;
};

}  // namespace platform
