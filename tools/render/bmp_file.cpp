#include "bmp_file.h"

namespace grub {

namespace {

constexpr std::uint32_t kPixelOffset = 54;
constexpr std::uint32_t kHeaderSize = 40;
/// 72 dots an inch, in dots a metre.
constexpr std::uint32_t kResolution = 2835;

class Bytes {
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

std::vector<std::uint8_t> bmpBytes(const PixelImage& image) {
    const auto size = static_cast<std::uint32_t>(image.pixels.size() * 4);
    Bytes out;
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

}  // namespace grub
