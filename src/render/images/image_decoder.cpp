#include "image_decoder.h"

#include <limits>
#include <utility>

#include "bmp_decoder.h"
#include "gif_decoder.h"
#include "jpeg_decoder.h"

namespace grub {

namespace {

bool startsWith(std::span<const std::uint8_t> file, std::uint8_t first, std::uint8_t second) {
    return file.size() >= 2 && file[0] == first && file[1] == second;
}

bool isJpeg(std::span<const std::uint8_t> file) { return startsWith(file, 0xFF, 0xD8); }

}  // namespace

std::uint32_t ImageDecoder::rowBytes(std::uint16_t rows) const { return std::uint32_t{3} * width_ * rows; }

void ImageDecoder::accept(std::uint16_t width, std::uint16_t height) {
    width_ = width;
    height_ = height;
    valid_ = true;
}

bool ImageDecoder::refuse(std::string fault) {
    fault_ = std::move(fault);
    return false;
}

SharedBuffer ImageDecoder::createRgb() {
    const std::uint64_t size = std::uint64_t{3} * width_ * height_;  // a BMP of 16 bits, tripled, can pass 4 GiB
    SharedBuffer rgb;
    if (size <= std::numeric_limits<std::uint32_t>::max()) rgb = SharedBuffer::create(static_cast<std::uint32_t>(size));
    if (rgb.empty()) refuse("no memory for the pixels");
    return rgb;
}

std::unique_ptr<ImageDecoder> createImageDecoder(const SharedBuffer& file) {
    const auto bytes = file.bytes();
    if (startsWith(bytes, 'B', 'M')) return std::make_unique<BmpDecoder>(file);
    if (startsWith(bytes, 'G', 'I')) return std::make_unique<GifDecoder>(file);
    if (isJpeg(bytes)) return std::make_unique<JpegDecoder>(file);
    return nullptr;
}

bool pictureDecodes(std::span<const std::uint8_t> file, std::string* fault) {
    const auto source = SharedBuffer::view(file.data(), static_cast<std::uint32_t>(file.size()));
    const auto decoder = createImageDecoder(source);
    SharedBuffer rgb;
    SharedBuffer alpha;
    bool decoded = false;
    if (decoder != nullptr) {
        decoded =
            isJpeg(file) ? static_cast<JpegDecoder&>(*decoder).decodeOrRefuse(rgb, alpha) : decoder->decode(rgb, alpha);
    }
    const std::string found = decoder != nullptr ? decoder->fault() : "neither BMP, GIF nor JPEG";
    if (fault != nullptr) *fault = found;
    return decoded && found.empty();
}

}  // namespace grub
