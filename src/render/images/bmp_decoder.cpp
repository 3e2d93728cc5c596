#include "bmp_decoder.h"

#include "byte_reader.h"

namespace grub {

namespace {

// Each of these converts one stored row of `width` pixels.

void convertRow16(const std::uint8_t* stored, std::uint8_t* rgb, unsigned width) {
    for (unsigned x = 0; x < width; ++x, stored += 2, rgb += 3) {
        const unsigned pixel = stored[0] | static_cast<unsigned>(stored[1]) << 8;
        rgb[0] = static_cast<std::uint8_t>(pixel >> 7 & 0xF8);
        rgb[1] = static_cast<std::uint8_t>(pixel >> 2 & 0xF8);
        rgb[2] = static_cast<std::uint8_t>(pixel << 3 & 0xF8);
    }
}

void convertRow24(const std::uint8_t* __restrict stored, std::uint8_t* __restrict rgb, unsigned width) {
    for (unsigned x = 0; x < width; ++x, stored += 3, rgb += 3) {
        rgb[0] = stored[2];
        rgb[1] = stored[1];
        rgb[2] = stored[0];
    }
}

void convertRow32(const std::uint8_t* __restrict stored, std::uint8_t* __restrict rgb, std::uint8_t* __restrict alpha,
                  unsigned width) {
    for (unsigned x = 0; x < width; ++x, stored += 4, rgb += 3) {
        rgb[0] = stored[2];
        rgb[1] = stored[1];
        rgb[2] = stored[0];
        alpha[x] = stored[3];
    }
}

}  // namespace

BmpDecoder::BmpDecoder(const SharedBuffer& source) : ImageDecoder(source) {
    ByteReader reader(file());
    const bool isBmp = reader.u8() == 'B' && reader.u8() == 'M';
    reader.skip(8);  // file size, reserved
    pixelOffset_ = static_cast<std::uint16_t>(reader.u32());
    reader.skip(4);  // size of the information header
    const auto width = static_cast<std::uint16_t>(reader.u32());
    const auto height = static_cast<std::uint16_t>(reader.u32());
    reader.skip(2);  // planes
    const unsigned bitCount = reader.u16();
    const std::uint32_t compression = reader.u32();
    reader.skip(20);  // image size, resolution, colours
    if (!isBmp || !reader.ok()) {
        refuse("BMP: no complete header");
    } else if (bitCount < 16 || compression != 0) {
        refuse("BMP: uncompressed pixels of 16, 24 or 32 bits wanted, " + std::to_string(bitCount) +
               " bits with compression " + std::to_string(compression) + " found");
    } else {
        bytesPerPixel_ = static_cast<std::uint16_t>(bitCount / 8);
        rowStride_ = static_cast<std::uint16_t>((std::uint32_t{bytesPerPixel_} * width + 3) & 0xFFFC);
        accept(width, height);
    }
}

std::span<const std::uint8_t> BmpDecoder::storedRows() {
    const std::uint64_t rowBytes = std::uint64_t{bytesPerPixel_} * width();
    // Rows of 32 bits are never padded and may be longer than a stride can say.
    const std::uint64_t stride = bytesPerPixel_ == 4 ? rowBytes : rowStride_;
    const std::uint64_t needed = stride * height();
    if (stride < rowBytes || pixelOffset_ + needed > file().size()) {
        refuse("BMP: " + std::to_string(width()) + " x " + std::to_string(height()) +
               " pixels do not fit into a file of " + std::to_string(file().size()) + " bytes");
        return {};
    }
    return file().subspan(pixelOffset_, needed);
}

bool BmpDecoder::decode(SharedBuffer& rgbOut, SharedBuffer& alphaOut) {
    if (!isValid()) return false;
    if (bytesPerPixel_ > 4) {
        rgbOut.release();
        alphaOut.release();
        invalidate();
        return refuse("BMP: 16, 24 or 32 bits a pixel wanted, " + std::to_string(8 * bytesPerPixel_) + " found");
    }
    const auto stored = storedRows();
    if (!fault().empty()) return false;
    SharedBuffer rgb = createRgb();
    SharedBuffer alpha;
    if (bytesPerPixel_ == 4) alpha = SharedBuffer::create(std::uint32_t{width()} * height());
    if (rgb.empty() || (bytesPerPixel_ == 4 && alpha.empty())) return refuse("no memory for the pixels");

    const std::size_t stride = height() == 0 ? 0 : stored.size() / height();
    for (unsigned row = 0; row < height(); ++row) {
        const std::uint8_t* from = stored.data() + row * stride;
        const std::size_t y = height() - 1u - row;
        std::uint8_t* const to = rgb.writableData() + y * rowBytes(1);
        switch (bytesPerPixel_) {
            case 2: convertRow16(from, to, width()); break;
            case 3: convertRow24(from, to, width()); break;
            default: convertRow32(from, to, alpha.writableData() + y * width(), width()); break;
        }
    }
    rgbOut = rgb;
    alphaOut = alpha;
    return true;
}

}  // namespace grub
