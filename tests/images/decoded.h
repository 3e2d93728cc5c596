#pragma once

#include "image_decoder.h"
#include "picture_bytes.h"

namespace grub {

/// What comes out of decoding a file, with what the outputs held before where they are left alone.
struct Decoded {
    bool done = false;
    bool valid = false;
    unsigned width = 0;
    unsigned height = 0;
    Bytes rgb;
    Bytes alpha;
    std::string fault;
};

/// What the outputs hold before.
inline const Bytes kOld{1, 2, 3};

/// Decodes a file that the factory knows.
[[nodiscard]] inline Decoded decoded(const Bytes& file) {
    const auto decoder = createImageDecoder(bufferOf(file));
    SharedBuffer rgb = bufferOf(kOld);
    SharedBuffer alpha = bufferOf(kOld);
    Decoded result;
    result.valid = decoder->isValid();
    result.width = decoder->width();
    result.height = decoder->height();
    result.done = decoder->decode(rgb, alpha);
    result.rgb = bytesOf(rgb);
    result.alpha = bytesOf(alpha);
    result.fault = decoder->fault();
    return result;
}

}  // namespace grub
