#include "desktop/screen_picture.h"

#include <png.h>

#include <cstdio>

namespace platform {
namespace {

std::vector<png_byte> rgbBytes(const ScreenPicture& picture) {
    std::vector<png_byte> bytes;
    bytes.reserve(picture.pixels.size() * 3);
    for (const std::uint32_t pixel : picture.pixels) {
        for (const unsigned shift : {16U, 8U, 0U}) bytes.push_back(static_cast<png_byte>(pixel >> shift));
    }
    return bytes;
}

}  // namespace

bool writePng(const std::string& path, const ScreenPicture& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGB;
    if (picture.pixels.empty()) {
        std::fprintf(stderr, "%s: there is no picture to write\n", path.c_str());
        return false;
    }
    if (png_image_write_to_file(&image, path.c_str(), 0, rgbBytes(picture).data(), 0, nullptr) != 0) return true;
    std::fprintf(stderr, "%s: cannot be written: %s\n", path.c_str(), image.message);
    return false;
}

}  // namespace platform
