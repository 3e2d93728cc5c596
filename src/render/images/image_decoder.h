#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "shared_buffer.h"

namespace grub {

/// One encoded picture: a complete BMP, GIF or JPEG file. The constructor of a decoder understands the header and no
/// more. A decoder belongs to one thread at a time; several may decode at once.
class ImageDecoder {
public:
    ImageDecoder(const ImageDecoder&) = delete;
    ImageDecoder& operator=(const ImageDecoder&) = delete;
    virtual ~ImageDecoder() = default;

    /// Makes the pixels; may be called once. `rgbOut` becomes width x height x 3 bytes R, G, B, rows top-down without
    /// padding; `alphaOut` becomes width x height bytes, or is released when the picture carries no alpha. False when
    /// the file is refused: then `fault` says why and both outputs are as they were, but for a BMP of an unknown depth,
    /// which releases them.
    virtual bool decode(SharedBuffer& rgbOut, SharedBuffer& alphaOut) = 0;
    /// Bytes of that many rows of RGB output.
    [[nodiscard]] virtual std::uint32_t rowBytes(std::uint16_t rows) const;

    /// Picture size in pixels, 0 x 0 when the header was not understood.
    [[nodiscard]] std::uint16_t width() const { return width_; }
    [[nodiscard]] std::uint16_t height() const { return height_; }
    /// Whether the header was understood, so that `decode` is worth trying.
    [[nodiscard]] bool isValid() const { return valid_; }
    /// Why the picture was refused, or what was lost when `decode` made the best of a damaged file; else "".
    [[nodiscard]] const std::string& fault() const { return fault_; }

protected:
    /// Keeps the file's bytes alive as long as the decoder.
    explicit ImageDecoder(SharedBuffer source) : source_(std::move(source)) {}

    /// The complete file.
    [[nodiscard]] std::span<const std::uint8_t> file() const { return source_.bytes(); }
    /// The header was understood and claims this size.
    void accept(std::uint16_t width, std::uint16_t height);
    /// The header turned out to be of no use after all.
    void invalidate() { valid_ = false; }
    /// Notes the fault. Always false, for `return refuse(...)`.
    bool refuse(std::string fault);
    /// A buffer for the RGB output; empty when there is no memory, which is noted as the fault.
    [[nodiscard]] SharedBuffer createRgb();

private:
    SharedBuffer source_;
    std::uint16_t width_ = 0;
    std::uint16_t height_ = 0;
    bool valid_ = false;
    std::string fault_;
};

/// The decoder for a file, chosen by its first two bytes only ("BM", "GI" or FF D8); null for anything else. It may
/// still turn out not to be valid.
[[nodiscard]] std::unique_ptr<ImageDecoder> createImageDecoder(const SharedBuffer& file);

/// Whether the game could show this picture completely; for tools that look for damage before a player does. On false
/// `fault` (when given) says in a line what is wrong. Unlike `decode` it never ends the process.
[[nodiscard]] bool pictureDecodes(std::span<const std::uint8_t> file, std::string* fault);

}  // namespace grub
