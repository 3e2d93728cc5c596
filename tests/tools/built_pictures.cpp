#include "built_pictures.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "image_decoder.h"
#include "picture_registry.h"
#include "resource_package.h"

namespace grub {
namespace {

PixelImage decoded(std::string_view name) {
    static ResourcePackage package(GRUB_DATA_DIR "/data64.pak");
    const std::string path = "data\\gif\\" + std::string(name) + ".bmp";
    const auto decoder = createImageDecoder(package.load(path.c_str()));
    SharedBuffer colours;
    SharedBuffer alpha;
    if (decoder == nullptr || !decoder->decode(colours, alpha)) {
        ADD_FAILURE() << path << " is not there or no picture";
        return {};
    }
    PixelImage image(decoder->width(), decoder->height());
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        const auto rgb = colours.bytes().subspan(3 * i, 3);
        const auto a = alpha.empty() ? std::uint8_t{255} : alpha.bytes()[i];
        image.pixels[i] = {rgb[0], rgb[1], rgb[2], a};
    }
    return image;
}

std::vector<PixelImage> framesIn(const PixelImage& strip, int frameHeight) {
    std::vector<PixelImage> frames;
    for (int y = 0; y + frameHeight <= strip.height; y += frameHeight) {
        PixelImage& frame = frames.emplace_back(strip.width, frameHeight);
        std::copy(strip.row(y), strip.row(y + frameHeight), frame.pixels.begin());
    }
    return frames;
}

}  // namespace

const std::vector<PixelImage>& builtStrip(std::string_view name) {
    static std::map<std::string, std::vector<PixelImage>, std::less<>> strips;
    const auto known = strips.find(name);
    if (known != strips.end()) return known->second;
    const PictureEntry* entry = findPicture(name);
    EXPECT_NE(entry, nullptr) << name;
    auto frames = framesIn(decoded(name), entry != nullptr ? entry->frameHeight : 64);
    if (frames.empty()) frames.emplace_back(64, 64);
    return strips.emplace(name, std::move(frames)).first->second;
}

const PixelImage& builtFrame(std::string_view name, int frame) {
    const auto& strip = builtStrip(name);
    EXPECT_LT(static_cast<std::size_t>(frame), strip.size()) << name;
    return strip.at(static_cast<std::size_t>(frame));
}

}  // namespace grub
