#pragma once

#include <cstdint>

#include "block_pool.h"
#include "image_decoder.h"

namespace grub {

/// Uncompressed BMP with 16, 24 or 32 bits a pixel. Of the header's 32-bit fields only the low 16 bits count. The rows
/// are always read bottom-up, also when the height is negative.
class BmpDecoder final : public ImageDecoder, public PoolAllocated<BmpDecoder> {
public:
    explicit BmpDecoder(const SharedBuffer& file);

    /// 32 bits give alpha, which is the fourth byte of each pixel. 16 bits are 5-5-5, red on top, low bits zero.
    bool decode(SharedBuffer& rgbOut, SharedBuffer& alphaOut) override;

private:
    /// Returns all stored rows. When the file does not hold them: nothing, and a fault.
    [[nodiscard]] std::span<const std::uint8_t> storedRows();

    std::uint16_t pixelOffset_ = 0;    // bytes from the file's start
    std::uint16_t bytesPerPixel_ = 0;  // bit count / 8, so 17 to 23 bits count as 16
    std::uint16_t rowStride_ = 0;      // bytes from stored row to stored row
};

}  // namespace grub
