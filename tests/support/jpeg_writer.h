#pragma once

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

#include "bytes.h"

namespace grub {

/// The properties of a JPEG file that tests vary.
struct JpegKind {
    J_COLOR_SPACE colours = JCS_RGB;  ///< of the samples given; JCS_GRAYSCALE 1, JCS_RGB 3, JCS_CMYK 4 a pixel
    int quality = 90;                 ///< 1 to 100
    bool progressive = false;
};

/// Returns the JPEG file that libjpeg writes from top-down rows of samples. Targets that include this link libjpeg.
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

/// Decodes a good JPEG of three components with nothing but libjpeg and its own memory source: the peer to compare
/// with.
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
