#pragma once

#include <cstdio>

#include <jpeglib.h>

#include "picture_bytes.h"

namespace grub {

/// Decodes a good JPEG of three components with nothing but libjpeg and its own memory source: the peer to compare
/// with. Whoever includes this links libjpeg.
[[nodiscard]] inline Bytes readJpegPlainly(const Bytes& file) {
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&info, TRUE);
    jpeg_start_decompress(&info);
    const std::size_t rowBytes = std::size_t{3} * info.output_width;
    Bytes rgb(rowBytes * info.output_height);
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = rgb.data() + info.output_scanline * rowBytes;
        jpeg_read_scanlines(&info, &row, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    return rgb;
}

}  // namespace grub
