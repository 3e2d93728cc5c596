#include "d3d8/software_texture.h"

#include <algorithm>
#include <new>
#include <utility>

#include "kernel/calls.h"

namespace platform {
namespace {

/// Alpha byte of 0xAARRGGBB.
constexpr std::uint32_t alphaOf(std::uint32_t texel) { return texel >> 24; }

/// value / 255 rounded to nearest, for products of two bytes.
constexpr std::uint32_t dividedBy255(std::uint32_t value) { return (value + 128 + ((value + 128) >> 8)) >> 8; }

/// Every channel of 0xAARRGGBB times factor / 255.
constexpr std::uint32_t scaled(std::uint32_t texel, std::uint32_t factor) {
    const auto channel = [=](int shift) { return dividedBy255((texel >> shift & 0xFF) * factor) << shift; };
    return channel(24) | channel(16) | channel(8) | channel(0);
}

/// The colours multiplied by the texel's own alpha.
constexpr std::uint32_t premultiplied(std::uint32_t texel) {
    const std::uint32_t alpha = alphaOf(texel);
    return alpha == 255 ? texel : alpha << 24 | (scaled(texel, alpha) & 0xFFFFFF);
}

std::uint32_t expandA4R4G4B4(std::uint16_t texel) {
    const auto channel = [texel](int shift) { return (texel >> shift & 0xFu) * 17u; };
    return channel(12) << 24 | channel(8) << 16 | channel(4) << 8 | channel(0);
}

// The texels of a row as A8R8G8B8: where they lie, or expanded into `scratch`, which has room for a row.
const std::uint32_t* rowOf(const TexelView& texels, UINT y, std::uint32_t* scratch) {
    const void* const row = texels.bits + std::size_t{y} * texels.pitch;
    if (texels.format == D3DFMT_A8R8G8B8) return static_cast<const std::uint32_t*>(row);
    std::transform(static_cast<const std::uint16_t*>(row), static_cast<const std::uint16_t*>(row) + texels.width,
                   scratch, expandA4R4G4B4);
    return scratch;
}

bool isVisible(std::uint32_t texel) { return alphaOf(texel) != 0; }

// Finds the visible box, and whether everything in it is opaque.
void measure(const TexelView& texels, std::uint32_t* scratch, TextureImage& image) {
    D3DRECT box{static_cast<LONG>(texels.width), static_cast<LONG>(texels.height), 0, 0};
    std::size_t opaqueTexels = 0;
    for (UINT y = 0; y < texels.height; ++y) {
        const std::uint32_t* const row = rowOf(texels, y, scratch);
        const std::uint32_t* const end = row + texels.width;
        const std::uint32_t* const first = std::find_if(row, end, isVisible);
        if (first == end) continue;
        const std::uint32_t* last = end;
        while (!isVisible(last[-1])) --last;
        box.x1 = std::min(box.x1, static_cast<LONG>(first - row));
        box.x2 = std::max(box.x2, static_cast<LONG>(last - row));
        box.y1 = std::min(box.y1, static_cast<LONG>(y));
        box.y2 = static_cast<LONG>(y) + 1;
        opaqueTexels += static_cast<std::size_t>(
            std::count_if(first, last, [](std::uint32_t texel) { return alphaOf(texel) == 255; }));
    }
    if (box.x1 >= box.x2) return;
    image.visible = box;
    image.opaque =
        opaqueTexels == static_cast<std::size_t>(box.x2 - box.x1) * static_cast<std::size_t>(box.y2 - box.y1);
}

bool copyPremultiplied(const TexelView& texels, std::uint32_t* scratch, TextureImage& image) {
    const D3DRECT& box = image.visible;
    const auto width = static_cast<std::size_t>(box.x2 - box.x1);
    const auto height = static_cast<std::size_t>(box.y2 - box.y1);
    image.copy.reset(static_cast<std::uint32_t*>(std::malloc(width * height * sizeof(std::uint32_t))));
    if (image.copy == nullptr) return false;
    std::uint32_t* target = image.copy.get();
    for (LONG y = box.y1; y < box.y2; ++y, target += width) {
        const std::uint32_t* const row = rowOf(texels, static_cast<UINT>(y), scratch) + box.x1;
        std::transform(row, row + width, target, premultiplied);
    }
    image.pixels = image.copy.get();
    image.stride = static_cast<UINT>(width);
    return true;
}

bool lendBits(const TexelView& texels, TextureImage& image) {
    const std::uint8_t* const first = texels.bits + static_cast<std::size_t>(image.visible.y1) * texels.pitch;
    image.pixels = static_cast<const std::uint32_t*>(static_cast<const void*>(first)) + image.visible.x1;
    image.stride = texels.pitch / sizeof(std::uint32_t);
    return true;
}

}  // namespace

std::optional<TextureImage> makeTextureImage(const TexelView& texels) {
    const HeapArray<std::uint32_t> scratch(
        static_cast<std::uint32_t*>(std::malloc(texels.width * sizeof(std::uint32_t))));
    if (scratch == nullptr) return std::nullopt;
    TextureImage image;
    measure(texels, scratch.get(), image);
    if (image.empty()) return image;

    const bool lend = image.opaque && texels.format == D3DFMT_A8R8G8B8;
    if (!(lend ? lendBits(texels, image) : copyPremultiplied(texels, scratch.get(), image))) return std::nullopt;
    // pixman takes a pointer to bits it may write; a source is only read.
    image.image.reset(pixman_image_create_bits_no_clear(
        image.opaque ? PIXMAN_x8r8g8b8 : PIXMAN_a8r8g8b8, image.visible.x2 - image.visible.x1,
        image.visible.y2 - image.visible.y1, const_cast<std::uint32_t*>(image.pixels),
        static_cast<int>(image.stride * sizeof(std::uint32_t))));
    if (image.image == nullptr) return std::nullopt;
    return image;
}

SoftwareTexture* SoftwareTexture::create(UINT width, UINT height, D3DFORMAT format) {
    const std::size_t bytesPerTexel = format == D3DFMT_A8R8G8B8 ? 4 : 2;
    HeapArray<std::uint8_t> bits(static_cast<std::uint8_t*>(std::calloc(std::size_t{width} * height, bytesPerTexel)));
    if (bits == nullptr) return nullptr;
    return new (std::nothrow) SoftwareTexture(width, height, format, std::move(bits));
}

SoftwareTexture::SoftwareTexture(UINT width, UINT height, D3DFORMAT format, HeapArray<std::uint8_t> bits)
    : width_(width), height_(height), format_(format), bits_(std::move(bits)) {}

HRESULT SoftwareTexture::LockRect(UINT level, D3DLOCKED_RECT* locked, const RECT* rect, DWORD flags) {
    if (const HRESULT fault = refusal(Call::LockTexture, level, flags); FAILED(fault)) return fault;
    const std::lock_guard guard(mutex_);
    // Parts of a level are never locked here, and there is one level.
    if (level != 0 || locked == nullptr || rect != nullptr || locked_) return D3DERR_INVALIDCALL;
    locked_ = true;
    lockFlags_ = flags;
    *locked = {static_cast<int>(pitch()), bits_.get()};
    return D3D_OK;
}

HRESULT SoftwareTexture::UnlockRect(UINT level) {
    if (const HRESULT fault = refusal(Call::UnlockTexture, level); FAILED(fault)) return fault;
    const std::lock_guard guard(mutex_);
    if (level != 0 || !locked_) return D3DERR_INVALIDCALL;
    locked_ = false;
    const bool written = (lockFlags_ & D3DLOCK_NO_DIRTY_UPDATE) == 0;
    if (written) image_.reset();
    return D3D_OK;
}

}  // namespace platform
