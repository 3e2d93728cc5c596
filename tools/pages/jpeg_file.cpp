#include "jpeg_file.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <set>

#include <jpeglib.h>

#include "image_decoder.h"

namespace grub {

namespace {

constexpr int kQuality = 93;

/// Each attempt makes the blocks around forbidden pixels bluer by this much.
constexpr int kAttempts = 40;
constexpr int kNudge = 2;
constexpr int kBlock = 8;

std::vector<std::uint8_t> rgbOf(const PixelImage& image) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(image.pixels.size() * 3);
    for (const Pixel& p : image.pixels) bytes.insert(bytes.end(), {p.r, p.g, p.b});
    return bytes;
}

std::vector<std::uint8_t> jpegBytes(const PixelImage& image) {
    jpeg_compress_struct job{};
    jpeg_error_mgr errors{};
    job.err = jpeg_std_error(&errors);
    jpeg_create_compress(&job);
    unsigned char* out = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&job, &out, &size);
    job.image_width = static_cast<JDIMENSION>(image.width);
    job.image_height = static_cast<JDIMENSION>(image.height);
    job.input_components = 3;
    job.in_color_space = JCS_RGB;
    jpeg_set_defaults(&job);
    jpeg_set_quality(&job, kQuality, TRUE);
    job.dct_method = JDCT_ISLOW;
    job.optimize_coding = TRUE;
    for (int i = 0; i < job.num_components; ++i) {
        job.comp_info[i].h_samp_factor = 1;
        job.comp_info[i].v_samp_factor = 1;
    }
    jpeg_start_compress(&job, TRUE);
    std::vector<std::uint8_t> rgb = rgbOf(image);
    while (job.next_scanline < job.image_height) {
        JSAMPROW row = rgb.data() + static_cast<std::size_t>(job.next_scanline) * job.image_width * 3;
        jpeg_write_scanlines(&job, &row, 1);
    }
    jpeg_finish_compress(&job);
    std::vector<std::uint8_t> bytes(out, out + size);
    jpeg_destroy_compress(&job);
    std::free(out);
    return bytes;
}

/// As the game decodes it: R, G, B of each pixel.
SharedBuffer decoded(const std::vector<std::uint8_t>& file) {
    SharedBuffer bytes = SharedBuffer::create(static_cast<std::uint32_t>(file.size()));
    std::ranges::copy(file, bytes.writableData());
    SharedBuffer rgb;
    SharedBuffer alpha;
    const auto decoder = createImageDecoder(bytes);
    if (decoder != nullptr) (void)decoder->decode(rgb, alpha);
    return rgb;
}

void makeBluer(PixelImage& image, int x, int y) {
    const int left = x / kBlock * kBlock;
    const int top = y / kBlock * kBlock;
    for (int row = top; row < std::min(top + kBlock, image.height); ++row) {
        for (int column = left; column < std::min(left + kBlock, image.width); ++column) {
            Pixel& p = image.at(column, row);
            p.b = static_cast<std::uint8_t>(std::min(255, p.b + kNudge));
        }
    }
}

/// Makes each block bluer that has a forbidden pixel in the decoded picture; false when there is none.
bool nudge(PixelImage& image, const SharedBuffer& rgb, Pixel forbidden) {
    std::set<std::pair<int, int>> blocks;  // bluer already
    const auto bytes = rgb.bytes();
    for (std::size_t i = 0; i + 2 < bytes.size(); i += 3) {
        if (bytes[i] != forbidden.r || bytes[i + 1] != forbidden.g || bytes[i + 2] != forbidden.b) continue;
        const int x = static_cast<int>(i / 3) % image.width;
        const int y = static_cast<int>(i / 3) / image.width;
        if (blocks.insert({x / kBlock, y / kBlock}).second) makeBluer(image, x, y);
    }
    return !blocks.empty();
}

}  // namespace

std::vector<std::uint8_t> jpegWithout(PixelImage image, Pixel forbidden) {
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        std::vector<std::uint8_t> bytes = jpegBytes(image);
        const SharedBuffer rgb = decoded(bytes);
        if (rgb.empty()) return {};
        if (!nudge(image, rgb, forbidden)) return bytes;
    }
    return {};
}

}  // namespace grub
