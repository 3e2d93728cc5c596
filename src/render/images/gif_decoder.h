#pragma once

#include <array>
#include <cstdint>

#include "block_pool.h"
#include "byte_reader.h"
#include "image_decoder.h"

namespace grub {

/// The first image of a GIF file, as wide and as high as the logical screen. Its pixels fill the output one after
/// another from the top-left corner, in stored order. The decoder ignores the image's place, size and interlacing, and
/// all extensions. Pixels that the file does not hold are black.
class GifDecoder final : public ImageDecoder, public PoolAllocated<GifDecoder> {
public:
    explicit GifDecoder(const SharedBuffer& file);

    /// Image data that ends early or makes no sense still gives true and the pixels before; `fault` says so.
    bool decode(SharedBuffer& rgbOut, SharedBuffer& alphaOut) override;

private:
    void readPalette();
    /// Moves the reader behind the separator of the first image; false when another block comes first.
    bool skipExtensions();
    /// Moves the reader to the image data; false and a fault when there is no usable image.
    bool readImageHeader();

    ByteReader reader_;                                         // at the next unread byte
    std::uint32_t colourCount_ = 0;                             // of the table in force: 2 to 256, 0 without a table
    std::array<std::uint8_t, std::size_t{256} * 3> palette_{};  // R, G, B
    unsigned minCodeSize_ = 0;                                  // bits
};

}  // namespace grub
