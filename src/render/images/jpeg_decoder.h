#pragma once

#include <cstdint>

#include "block_pool.h"
#include "image_decoder.h"
#include "libjpeg_callbacks.h"

namespace grub {

/// JPEG through libjpeg with its default output settings. Grey pictures become RGB; other pictures without exactly
/// three components are refused. Decoders of several threads take turns, since they share a staging buffer.
class JpegDecoder final : public ImageDecoder, public PoolAllocated<JpegDecoder> {
public:
    /// The decoder is not valid when libjpeg cannot read the whole header.
    explicit JpegDecoder(const SharedBuffer& file);

    /// A fatal error of libjpeg ends the process as libjpeg's own handler does: its message goes to standard error, the
    /// exit code is 1. Returns false when the file ends before the last row.
    bool decode(SharedBuffer& rgbOut, SharedBuffer& alphaOut) override;
    /// The same, but returns false on a fatal error too.
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
