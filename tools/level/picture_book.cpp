#include "picture_book.h"

#include <png.h>

#include <algorithm>
#include <memory>
#include <string>

#include "image_decoder.h"
#include "loading_list.h"
#include "whole_file.h"

namespace grub {

namespace {

const LoadEntry* entryOf(int animationId) {
    const auto list = loadingList();
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const LoadEntry& entry) { return entry.id == animationId; });
    return found == list.end() ? nullptr : &*found;
}

std::filesystem::path fileOf(const LoadEntry& entry) {
    std::string stem(entry.stem);
    std::replace(stem.begin(), stem.end(), '\\', '/');
    return stem + ".bmp";
}

bool isKey(const std::uint8_t* rgb, Colour key) { return rgb[0] == key.r && rgb[1] == key.g && rgb[2] == key.b; }

/// The top `height` rows of a decoded picture; `alpha` may be empty, then the colour key decides.
RgbaPicture topRows(const SharedBuffer& rgb, const SharedBuffer& alpha, int width, int height, Colour key) {
    RgbaPicture frame{width, height, {}};
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    frame.rgba.reserve(4 * pixels);
    for (std::size_t i = 0; i < pixels; ++i) {
        const std::uint8_t* colour = rgb.data() + 3 * i;
        frame.rgba.insert(frame.rgba.end(), colour, colour + 3);
        frame.rgba.push_back(alpha.empty() ? (isKey(colour, key) ? 0 : 255) : alpha.data()[i]);
    }
    return frame;
}

void mirror(RgbaPicture& picture) {
    const auto columns = static_cast<std::ptrdiff_t>(picture.width);
    for (std::ptrdiff_t row = 0; row < picture.height; ++row)
        for (std::ptrdiff_t left = 0, right = columns - 1; left < right; ++left, --right)
            std::swap_ranges(picture.rgba.begin() + 4 * (row * columns + left),
                             picture.rgba.begin() + 4 * (row * columns + left) + 4,
                             picture.rgba.begin() + 4 * (row * columns + right));
}

std::uint8_t mix(std::uint8_t under, std::uint8_t over, unsigned alpha) {
    return static_cast<std::uint8_t>((over * alpha + under * (255 - alpha) + 127) / 255);
}

}  // namespace

const RgbaPicture& PictureBook::firstFrame(int animationId) {
    const auto found = frames_.find(animationId);
    return found != frames_.end() ? found->second : frames_.emplace(animationId, read(animationId)).first->second;
}

RgbaPicture PictureBook::read(int animationId) const {
    const LoadEntry* entry = entryOf(animationId);
    if (entry == nullptr || folder_.empty()) return {};
    const auto bytes = readWholeFile(folder_ / fileOf(*entry));
    if (!bytes || !pictureDecodes(*bytes, nullptr)) return {};
    const auto decoder =
        createImageDecoder(SharedBuffer::view(bytes->data(), static_cast<std::uint32_t>(bytes->size())));
    SharedBuffer rgb;
    SharedBuffer alpha;
    if (decoder == nullptr || !decoder->decode(rgb, alpha)) return {};
    const int height = std::min<int>(decoder->height(), entry->frameHeight);
    RgbaPicture frame = topRows(rgb, alpha, decoder->width(), height, entry->colourKey);
    if (entry->transform == TextureTransform::FlipHorizontal) mirror(frame);
    return frame;
}

void blend(RgbaPicture& page, const RgbaPicture& picture, int x, int y) {
    const auto at = [](const RgbaPicture& of, int column, int row) {
        return 4 *
               (static_cast<std::size_t>(row) * static_cast<std::size_t>(of.width) + static_cast<std::size_t>(column));
    };
    for (int row = std::max(0, -y); row < std::min(picture.height, page.height - y); ++row) {
        for (int column = std::max(0, -x); column < std::min(picture.width, page.width - x); ++column) {
            const std::uint8_t* over = &picture.rgba[at(picture, column, row)];
            std::uint8_t* under = &page.rgba[at(page, column + x, row + y)];
            for (int channel = 0; channel < 3; ++channel) under[channel] = mix(under[channel], over[channel], over[3]);
        }
    }
}

bool writePng(const std::filesystem::path& path, const RgbaPicture& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGBA;
    return png_image_write_to_file(&image, path.c_str(), 0, picture.rgba.data(), 0, nullptr) != 0;
}

}  // namespace grub
