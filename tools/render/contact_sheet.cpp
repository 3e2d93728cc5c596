#include "contact_sheet.h"

#include <cairo.h>

#include <memory>

#include "strip.h"

namespace grub {

namespace {

constexpr int kGap = 4;
constexpr int kSheetWidth = 700;
constexpr Pixel kSheetGround{58, 62, 84, 255};

struct Placed {
    PixelImage picture;
    int x;
    int y;
};

std::uint8_t blend(std::uint8_t over, std::uint8_t under, std::uint8_t alpha) {
    return static_cast<std::uint8_t>((over * alpha + under * (255 - alpha) + 127) / 255);
}

void lay(PixelImage& sheet, const Placed& item) {
    for (int y = 0; y < item.picture.height; ++y) {
        for (int x = 0; x < item.picture.width; ++x) {
            const Pixel p = item.picture.at(x, y);
            Pixel& under = sheet.at(item.x + x, item.y + y);
            under = {blend(p.r, under.r, p.a), blend(p.g, under.g, p.a), blend(p.b, under.b, p.a), 255};
        }
    }
}

PixelImage enlarged(const PixelImage& image, int zoom) {
    PixelImage large(image.width * zoom, image.height * zoom);
    for (int y = 0; y < large.height; ++y) {
        for (int x = 0; x < large.width; ++x) large.at(x, y) = image.at(x / zoom, y / zoom);
    }
    return large;
}

}  // namespace

PixelImage contactSheet(const std::vector<const PictureEntry*>& entries, int zoom) {
    std::vector<Placed> items;
    int x = kGap;
    int y = kGap;
    int rowHeight = 0;
    for (const PictureEntry* entry : entries) {
        for (int frame = 0; frame < entry->frames; ++frame) {
            const bool full = x + entry->width + kGap > kSheetWidth;
            const bool newStrip = frame == 0 && entry->frames > 1 && x > kGap;
            if (full || newStrip) {
                x = kGap;
                y += rowHeight + kGap;
                rowHeight = 0;
            }
            items.push_back({renderFrame(*entry, frame), x, y});
            x += entry->width + kGap;
            rowHeight = std::max(rowHeight, entry->frameHeight);
        }
    }
    PixelImage sheet(kSheetWidth, y + rowHeight + kGap);
    std::fill(sheet.pixels.begin(), sheet.pixels.end(), kSheetGround);
    for (const Placed& item : items) lay(sheet, item);
    return enlarged(sheet, zoom);
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
