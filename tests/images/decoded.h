#pragma once

#include "bytes.h"
#include "image_decoder.h"

namespace grub {

/// What both outputs hold before `decoded` decodes.
inline const Bytes kOld{1, 2, 3};

/// The result of decoding a file.
struct Decoded {
    bool done = false;
    bool valid = false;
    unsigned width = 0;
    unsigned height = 0;
    Bytes rgb;
    Bytes alpha;
    std::string fault;

    /// Whether the decoder refused the file, gave a reason and left both outputs alone.
    [[nodiscard]] bool refused() const { return !done && !fault.empty() && rgb == kOld && alpha == kOld; }
};

/// Decodes a file that starts with the two bytes of a known format.
[[nodiscard]] inline Decoded decoded(const Bytes& file) {
    const auto decoder = createImageDecoder(bufferOf(file));
    SharedBuffer rgb = bufferOf(kOld);
    SharedBuffer alpha = bufferOf(kOld);
    const bool done = decoder->decode(rgb, alpha);
    return {done,         decoder->isValid(), decoder->width(), decoder->height(),
            bytesOf(rgb), bytesOf(alpha),     decoder->fault()};
}

/// The first `size` bytes.
[[nodiscard]] inline Bytes cut(const Bytes& file, std::size_t size) {
    return Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
}

}  // namespace grub
