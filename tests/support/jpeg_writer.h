#pragma once

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

#include "picture_bytes.h"

namespace grub {

/// What of a JPEG file can vary.
struct JpegKind {
    J_COLOR_SPACE colours = JCS_RGB;  ///< of the samples given; JCS_GRAYSCALE 1, JCS_RGB 3, JCS_CMYK 4 a pixel
    int quality = 90;                 ///< 1 to 100
    bool progressive = false;
};

/// The JPEG file of top-down rows of samples, written by libjpeg. Whoever includes this links libjpeg.
[[nodiscard]] inline Bytes writeJpeg(unsigned width, unsigned height, Bytes samples, const JpegKind& kind = {}) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &memory, &size);
    info.image_width = width;
    info.image_height = height;
    info.in_color_space = kind.colours;
    info.input_components = kind.colours == JCS_RGB ? 3 : kind.colours == JCS_CMYK ? 4 : 1;
    const std::size_t rowBytes = std::size_t{width} * static_cast<unsigned>(info.input_components);
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, kind.quality, TRUE);
    if (kind.progressive) jpeg_simple_progression(&info);
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < height) {
        JSAMPROW row = samples.data() + info.next_scanline * rowBytes;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    Bytes file(memory, memory + size);
    std::free(memory);
    return file;
}

}  // namespace grub
