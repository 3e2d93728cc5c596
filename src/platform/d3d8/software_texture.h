#pragma once

#include <cstdint>
#include <mutex>
#include <optional>

#include <d3d8.h>

#include "com_object.h"
#include "texture_image.h"

namespace platform {

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

    /// Calls `paint(const TextureImage&)` while nobody can write, unless the texture shows nothing: it is empty, or
    /// locked at this moment. False when memory ran out.
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
