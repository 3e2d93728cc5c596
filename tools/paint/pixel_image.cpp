#include "pixel_image.h"

#include <cairo.h>

#include <algorithm>
#include <memory>

namespace grub {

namespace {

constexpr std::uint32_t kPixelOffset = 54;
constexpr std::uint32_t kHeaderSize = 40;
/// 72 dots an inch, in dots a metre.
constexpr std::uint32_t kResolution = 2835;

class FileBytes {
public:
    void u16(std::uint32_t value) {
        bytes_.push_back(static_cast<std::uint8_t>(value));
        bytes_.push_back(static_cast<std::uint8_t>(value >> 8));
    }
    void u32(std::uint32_t value) {
        u16(value & 0xffffU);
        u16(value >> 16);
    }
    void pixel(const Pixel& p) { bytes_.insert(bytes_.end(), {p.b, p.g, p.r, p.a}); }
    std::vector<std::uint8_t> take() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};

}  // namespace

void layOver(PixelImage& page, const PixelImage& picture, int x, int y) {
    const auto mixed = [](std::uint8_t over, std::uint8_t under, std::uint8_t alpha) {
        return static_cast<std::uint8_t>((over * alpha + under * (255 - alpha) + 127) / 255);
    };
    for (int row = std::max(0, -y); row < std::min(picture.height, page.height - y); ++row) {
        for (int column = std::max(0, -x); column < std::min(picture.width, page.width - x); ++column) {
            const Pixel p = picture.at(column, row);
            Pixel& under = page.at(x + column, y + row);
            under = {mixed(p.r, under.r, p.a), mixed(p.g, under.g, p.a), mixed(p.b, under.b, p.a),
                     static_cast<std::uint8_t>(p.a + mixed(0, under.a, p.a))};
        }
    }
}

std::vector<std::uint8_t> bmpBytes(const PixelImage& image) {
    const auto size = static_cast<std::uint32_t>(image.pixels.size() * 4);
    FileBytes out;
    out.u16(0x4d42);  // "BM"
    out.u32(kPixelOffset + size);
    out.u32(0);
    out.u32(kPixelOffset);
    out.u32(kHeaderSize);
    out.u32(static_cast<std::uint32_t>(image.width));
    out.u32(static_cast<std::uint32_t>(image.height));
    out.u16(1);   // planes
    out.u16(32);  // bits a pixel
    out.u32(0);   // no compression
    out.u32(size);
    out.u32(kResolution);
    out.u32(kResolution);
    out.u32(0);  // no palette
    out.u32(0);
    for (int y = image.height - 1; y >= 0; --y) {
        for (int x = 0; x < image.width; ++x) out.pixel(image.at(x, y));
    }
    return out.take();
}

bool writePng(const std::string& path, const PixelImage& image) {
    const std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, image.width, image.height), cairo_surface_destroy);
    unsigned char* bytes = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    for (int y = 0; y < image.height; ++y) {
        auto* row = reinterpret_cast<std::uint32_t*>(bytes + static_cast<std::ptrdiff_t>(y) * stride);
        for (int x = 0; x < image.width; ++x) {
            const Pixel p = image.at(x, y);
            row[x] = static_cast<std::uint32_t>(p.r << 16 | p.g << 8 | p.b);
        }
    }
    cairo_surface_mark_dirty(surface.get());
    return cairo_surface_write_to_png(surface.get(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}

}  // namespace grub
