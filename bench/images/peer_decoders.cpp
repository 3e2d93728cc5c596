#include "peer_decoders.h"

#include <gif_lib.h>

#include <cstdio>
#include <cstring>

#include <jpeglib.h>

namespace grub {

namespace {

RgbPixels pixelsFor(std::size_t width, std::size_t height) { return RgbPixels(new std::uint8_t[width * height * 3]); }

int readFromSpan(GifFileType* gif, GifByteType* to, int count) {
    auto& rest = *static_cast<std::span<const std::uint8_t>*>(gif->UserData);
    const std::size_t given = std::min(rest.size(), static_cast<std::size_t>(count));
    std::memcpy(to, rest.data(), given);
    rest = rest.subspan(given);
    return static_cast<int>(given);
}

// Skips to the first image; giflib expands its lines into indices.
RgbPixels readFirstImage(GifFileType* gif) {
    GifRecordType record = UNDEFINED_RECORD_TYPE;
    if (DGifGetRecordType(gif, &record) != GIF_OK || record != IMAGE_DESC_RECORD_TYPE) return nullptr;
    if (DGifGetImageDesc(gif) != GIF_OK || gif->SColorMap == nullptr) return nullptr;
    const auto width = static_cast<std::size_t>(gif->SWidth);
    const auto height = static_cast<std::size_t>(gif->SHeight);
    RgbPixels rgb = pixelsFor(width, height);
    Bytes line(width);
    std::uint8_t* to = rgb.get();
    for (std::size_t y = 0; y < height; ++y) {
        if (DGifGetLine(gif, line.data(), gif->SWidth) != GIF_OK) return nullptr;
        for (const std::uint8_t index : line) {
            const GifColorType& colour = gif->SColorMap->Colors[index];
            to[0] = colour.Red;
            to[1] = colour.Green;
            to[2] = colour.Blue;
            to += 3;
        }
    }
    return rgb;
}

}  // namespace

RgbPixels decodeWithGiflib(const Bytes& file) {
    std::span<const std::uint8_t> rest(file);
    GifFileType* gif = DGifOpen(&rest, readFromSpan, nullptr);
    if (gif == nullptr) return nullptr;
    RgbPixels rgb = readFirstImage(gif);
    DGifCloseFile(gif, nullptr);
    return rgb;
}

void FreeSurface::operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }

SdlSurface decodeWithSdl(const Bytes& file) {
    SDL_Surface* loaded = SDL_LoadBMP_RW(SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())), 1);
    if (loaded == nullptr) return nullptr;
    SDL_Surface* converted = SDL_ConvertSurfaceFormat(loaded, SDL_PIXELFORMAT_RGB24, 0);
    SDL_FreeSurface(loaded);
    return SdlSurface(converted);
}

RgbPixels decodeWithLibjpeg(const Bytes& file) {
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&info, TRUE);
    jpeg_start_decompress(&info);
    const std::size_t rowBytes = std::size_t{3} * info.output_width;
    RgbPixels rgb = pixelsFor(info.output_width, info.output_height);
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = rgb.get() + info.output_scanline * rowBytes;
        jpeg_read_scanlines(&info, &row, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    return rgb;
}

}  // namespace grub
