#include "gif_decoder.h"

#include <algorithm>
#include <string_view>

#include "gif_lzw.h"

namespace grub {

namespace {

constexpr std::uint8_t kExtensionIntroducer = 0x21;
constexpr std::uint8_t kImageSeparator = 0x2C;

// How many colours the table has that these flags announce; 0: no table.
std::uint32_t tableSize(std::uint8_t flags) { return (flags & 0x80) != 0 ? 2u << (flags & 7) : 0; }

const char* describe(LzwEnd end) {
    switch (end) {
        case LzwEnd::EndCode:
        case LzwEnd::PictureFull: return "";
        case LzwEnd::DataRanOut: return "GIF: the image data ends before the picture is full";
        case LzwEnd::Damaged: return "GIF: the image data makes no sense";
    }
    return "";
}

}  // namespace

GifDecoder::GifDecoder(const SharedBuffer& source) : ImageDecoder(source), reader_(file()) {
    const auto bytes = reader_.take(6);
    const std::string_view signature(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const std::uint16_t width = reader_.u16();
    const std::uint16_t height = reader_.u16();
    const std::uint8_t flags = reader_.u8();
    reader_.skip(2);  // background colour, aspect ratio
    if (!reader_.ok() || (signature != "GIF87a" && signature != "GIF89a")) {
        refuse("GIF: no complete header of version 87a or 89a");
        return;
    }
    colourCount_ = tableSize(flags);
    accept(width, height);
}

void GifDecoder::readPalette() {
    const auto table = reader_.take(colourCount_ * std::size_t{3});
    std::copy(table.begin(), table.end(), palette_.begin());
}

bool GifDecoder::skipExtensions() {
    std::uint8_t block = reader_.u8();
    while (block == kExtensionIntroducer && reader_.ok()) {
        reader_.skip(1);  // label
        while (const std::uint8_t length = reader_.u8()) reader_.skip(length);
        block = reader_.u8();
    }
    return block == kImageSeparator;
}

bool GifDecoder::readImageHeader() {
    readPalette();
    if (!skipExtensions()) return refuse("GIF: no image after the colour table and the extensions");
    reader_.skip(8);  // left, top, width, height
    if (const std::uint32_t localCount = tableSize(reader_.u8())) {
        colourCount_ = localCount;
        readPalette();
    }
    minCodeSize_ = reader_.u8();
    if (!reader_.ok()) return refuse("GIF: the file ends inside the headers");
    if (colourCount_ == 0) return refuse("GIF: no colour table");
    if (minCodeSize_ < 1 || minCodeSize_ > 11) {
        return refuse("GIF: codes of 1 to 11 bits wanted, " + std::to_string(minCodeSize_) + " found");
    }
    return true;
}

bool GifDecoder::decode(SharedBuffer& rgbOut, SharedBuffer& alphaOut) {
    if (!isValid() || !readImageHeader()) return false;
    if (!isPlausibleSize(std::uint64_t{width()} * height(), file().size(), kGifPixelsPerByte)) {
        return refuse("GIF: " + std::to_string(width()) + " x " + std::to_string(height()) +
                      " pixels cannot come out of a file of " + std::to_string(file().size()) + " bytes");
    }
    SharedBuffer rgb = createRgb();
    if (rgb.empty()) return false;
    const std::span<std::uint8_t> out(rgb.writableData(), rgb.size());
    LzwExpander expander(minCodeSize_, std::span(palette_).first(colourCount_ * std::size_t{3}), out);
    refuse(describe(expander.run(reader_.take(reader_.remaining()))));
    std::fill(out.begin() + static_cast<std::ptrdiff_t>(expander.filled()), out.end(), std::uint8_t{0});
    rgbOut = rgb;
    alphaOut.release();
    return true;
}

}  // namespace grub
