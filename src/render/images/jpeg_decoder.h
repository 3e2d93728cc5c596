#pragma once

#include <cstdint>

#include "block_pool.h"
#include "image_decoder.h"
#include "jpeg_errors.h"
#include "jpeg_source.h"

namespace grub {

/// JPEG through libjpeg, with its default output settings. Grey pictures come out as RGB; others that are not made of
/// three components are refused. Decoders of several threads take turns, since they share a staging buffer.
class JpegDecoder final : public ImageDecoder, public PoolAllocated<JpegDecoder> {
public:
    /// Not valid when libjpeg cannot read the header completely, for whatever reason.
    explicit JpegDecoder(const SharedBuffer& file);

    /// An error that libjpeg calls fatal ends the process, as libjpeg's own handler does: with its message on standard
    /// error and exit code 1. A file that ends before the last row gives false.
    bool decode(SharedBuffer& rgbOut, SharedBuffer& alphaOut) override;
    /// The same, but a fatal error is one more reason to give false.
    bool decodeOrRefuse(SharedBuffer& rgbOut, SharedBuffer& alphaOut);

private:
    JpegOutcome decodeInto(SharedBuffer& rgbOut, SharedBuffer& alphaOut);
    JpegOutcome readHeader();
    JpegOutcome decompress(std::uint8_t* rgb);
    void startReading();
    bool decompressHere(std::uint8_t* rgb);
    bool explain(const char* fault);

    jpeg_decompress_struct info_{};
    JpegErrors errors_;
    JpegSource source_;
};

}  // namespace grub
