#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "resource_source.h"

namespace grub {

/// One encoded picture: a complete BMP, GIF or JPEG file. The constructor of a decoder reads the header only.
/// One thread at a time uses a decoder; several decoders may work at once.
class ImageDecoder {
public:
    ImageDecoder(const ImageDecoder&) = delete;
    ImageDecoder& operator=(const ImageDecoder&) = delete;
    virtual ~ImageDecoder() = default;

    /// Makes the pixels; call it once. `rgbOut` becomes width x height x 3 bytes R, G, B, rows top-down without
    /// padding. `alphaOut` becomes width x height bytes, or is released when the picture has no alpha. Returns false
    /// when it refuses the file: then `fault` says why, and both outputs keep their bytes. Only a BMP of an unknown
    /// depth releases them.
    virtual bool decode(SharedBuffer& rgbOut, SharedBuffer& alphaOut) = 0;
    /// Size in bytes of `rows` rows of RGB output.
    [[nodiscard]] virtual std::uint32_t rowBytes(std::uint16_t rows) const;

    /// Picture size in pixels, 0 x 0 when the header was not understood.
    [[nodiscard]] std::uint16_t width() const { return width_; }
    [[nodiscard]] std::uint16_t height() const { return height_; }
    /// False when the constructor did not understand the header: `decode` then fails.
    [[nodiscard]] bool isValid() const { return valid_; }
    /// Why the decoder refused the picture, or what a damaged file lacks although `decode` returned true; else "".
    [[nodiscard]] const std::string& fault() const { return fault_; }

protected:
    /// The decoder shares the file's bytes and so keeps them alive.
    explicit ImageDecoder(SharedBuffer source) : source_(std::move(source)) {}

    /// The complete file.
    [[nodiscard]] std::span<const std::uint8_t> file() const { return source_.bytes(); }
    /// Call this when the header is understood: the decoder becomes valid and has this size.
    void accept(std::uint16_t width, std::uint16_t height);
    /// Takes `accept` back.
    void invalidate() { valid_ = false; }
    /// Keeps the fault. Always returns false, for `return refuse(...)`.
    bool refuse(std::string fault);
    /// Returns a buffer for the RGB output. Without memory: an empty one, and a fault.
    [[nodiscard]] SharedBuffer createRgb();

private:
    SharedBuffer source_;
    std::uint16_t width_ = 0;
    std::uint16_t height_ = 0;
    bool valid_ = false;
    std::string fault_;
};

/// Chooses a decoder by the file's first two bytes only ("BM", "GI" or FF D8); null for other bytes. The decoder may
/// be not valid.
[[nodiscard]] std::unique_ptr<ImageDecoder> createImageDecoder(const SharedBuffer& file);

/// Whether the game can show this picture completely; for tools that look for damage. On false `fault` (unless null)
/// says in one line what is wrong. Unlike `decode`, this never ends the process.
[[nodiscard]] bool pictureDecodes(std::span<const std::uint8_t> file, std::string* fault);

/// A file of any length may claim this many pixels (12 MiB of RGB), so that a cut file still shows what it has.
inline constexpr std::uint64_t kFreePixels = std::uint64_t{1} << 22;
/// No compressed picture may claim more pixels than this (192 MiB of RGB), which is far above the game's largest.
inline constexpr std::uint64_t kMostPixels = std::uint64_t{1} << 26;

/// The most pixels that a byte of a GIF can give: a code of 12 bits stands for at most 4096 of them, and shorter codes
/// for fewer a bit.
inline constexpr std::uint64_t kGifPixelsPerByte = 4096 * 8 / 12 + 1;
/// The same for a JPEG: each block of 8 x 8 samples costs at least a bit, and a component sampled at half the
/// resolution covers twice as many pixels with it.
inline constexpr std::uint64_t kJpegPixelsPerByte = 1024;

/// Whether a file of `fileBytes` may claim a picture of that many pixels. A few bytes of header can claim
/// 65535 x 65535, so decoders ask this before they take memory.
constexpr bool isPlausibleSize(std::uint64_t pixels, std::uint64_t fileBytes, std::uint64_t pixelsPerByte) {
    return pixels <= kFreePixels || (pixels <= kMostPixels && pixels / pixelsPerByte <= fileBytes);
}

}  // namespace grub
