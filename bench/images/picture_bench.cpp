// Our decoders beside the libraries that a user could have taken: same files from memory, same pixels, proven first.
#include <benchmark/benchmark.h>

#include <random>

#include "bmp_writer.h"
#include "gif_writer.h"
#include "image_decoder.h"
#include "jpeg_writer.h"
#include "peer_decoders.h"

namespace grub {
namespace {

// A strip of a character's walk is about this large; a background is 800 x 600.
constexpr unsigned kWidth = 512;
constexpr unsigned kHeight = 512;
constexpr std::size_t kPixels = std::size_t{kWidth} * kHeight;

Bytes smoothRgb() {
    Bytes rgb;
    const Bytes speckles = noise(kPixels, 24, 1);
    for (unsigned y = 0; y < kHeight; ++y) {
        for (unsigned x = 0; x < kWidth; ++x) {
            const unsigned speckle = speckles[std::size_t{y} * kWidth + x];
            for (const unsigned value : {x / 4, y / 4, (x + y) / 8}) {
                rgb.push_back(static_cast<std::uint8_t>(value + speckle));
            }
        }
    }
    return rgb;
}

// `width` x `height` bytes below `limit` with the runs and repeats of a drawn picture: slopes of eight pixels, a few
// of them speckled.
Bytes drawnIndices(unsigned width, unsigned height, unsigned limit, unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes;
    bytes.reserve(std::size_t{width} * height);
    for (unsigned y = 0; y < height; ++y) {
        for (unsigned x = 0; x < width; ++x) {
            const unsigned speckle = random() % 16 == 0 ? random() % 4 : 0;
            bytes.push_back(static_cast<std::uint8_t>((x / 8 + y / 8 * 3 + (x + y) / 64 + speckle) % limit));
        }
    }
    return bytes;
}

const Bytes& gif() {
    static const Bytes file = writeGif(kWidth, kHeight, drawnIndices(kWidth, kHeight, 256, 1), noise(768, 256, 2));
    return file;
}
const Bytes& noisyGif() {
    static const Bytes file = writeGif(kWidth, kHeight, noise(kPixels, 256, 3), noise(768, 256, 2));
    return file;
}
const Bytes& flatGif() {
    static const Bytes file = writeGif(kWidth, kHeight, Bytes(kPixels, 5), noise(768, 256, 2));
    return file;
}
const Bytes& tileGif() {
    static const Bytes file = writeGif(64, 64, drawnIndices(64, 64, 64, 1), noise(192, 256, 2));
    return file;
}
const Bytes& bmp24() {
    static const Bytes file = writeBmp(kWidth, kHeight, smoothRgb());
    return file;
}
const Bytes& bmp32() {
    static const Bytes file = writeBmp(kWidth, kHeight, smoothRgb(), noise(kPixels, 256, 4));
    return file;
}
const Bytes& jpeg() {
    static const Bytes file = writeJpeg(kWidth, kHeight, smoothRgb());
    return file;
}

SharedBuffer decodeWithOurs(const Bytes& file) {
    const auto decoder = createImageDecoder(SharedBuffer::view(file.data(), static_cast<std::uint32_t>(file.size())));
    SharedBuffer rgb;
    SharedBuffer alpha;
    if (!decoder->decode(rgb, alpha)) return {};
    return rgb;
}

bool agree(const SharedBuffer& ours, const RgbPixels& peer) {
    return !ours.empty() && peer != nullptr && std::equal(ours.bytes().begin(), ours.bytes().end(), peer.get());
}

bool agree(const SharedBuffer& ours, const SdlSurface& peer) {
    const std::size_t rowBytes = std::size_t{kWidth} * 3;
    if (peer == nullptr || ours.size() != rowBytes * kHeight) return false;
    for (std::size_t y = 0; y < kHeight; ++y) {
        const auto* row = static_cast<const std::uint8_t*>(peer->pixels) + y * static_cast<std::size_t>(peer->pitch);
        if (!std::equal(row, row + rowBytes, ours.data() + y * rowBytes)) return false;
    }
    return true;
}

// Times `timed` on a file for which ours and the peer's answers are equal.
template <class Timed, class Peer>
void decodePicture(benchmark::State& state, const Bytes& (*file)(), Timed timed, Peer peer) {
    const SharedBuffer ours = decodeWithOurs(file());
    if (!agree(ours, peer(file()))) return state.SkipWithError("the pictures differ");
    for (auto _ : state) benchmark::DoNotOptimize(timed(file()));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * ours.size());
}

BENCHMARK_CAPTURE(decodePicture, gif_ours, gif, decodeWithOurs, decodeWithGiflib)->Name("gif/ours");
BENCHMARK_CAPTURE(decodePicture, gif_giflib, gif, decodeWithGiflib, decodeWithGiflib)->Name("gif/giflib");
BENCHMARK_CAPTURE(decodePicture, gif_noise_ours, noisyGif, decodeWithOurs, decodeWithGiflib)->Name("gif_noise/ours");
BENCHMARK_CAPTURE(decodePicture, gif_noise_giflib, noisyGif, decodeWithGiflib, decodeWithGiflib)
    ->Name("gif_noise/giflib");
BENCHMARK_CAPTURE(decodePicture, gif_flat_ours, flatGif, decodeWithOurs, decodeWithGiflib)->Name("gif_flat/ours");
BENCHMARK_CAPTURE(decodePicture, gif_flat_giflib, flatGif, decodeWithGiflib, decodeWithGiflib)->Name("gif_flat/giflib");
BENCHMARK_CAPTURE(decodePicture, gif_tile_ours, tileGif, decodeWithOurs, decodeWithGiflib)->Name("gif_tile/ours");
BENCHMARK_CAPTURE(decodePicture, gif_tile_giflib, tileGif, decodeWithGiflib, decodeWithGiflib)->Name("gif_tile/giflib");
BENCHMARK_CAPTURE(decodePicture, bmp24_ours, bmp24, decodeWithOurs, decodeWithSdl)->Name("bmp24/ours");
BENCHMARK_CAPTURE(decodePicture, bmp24_sdl, bmp24, decodeWithSdl, decodeWithSdl)->Name("bmp24/sdl");
BENCHMARK_CAPTURE(decodePicture, bmp32_ours, bmp32, decodeWithOurs, decodeWithSdl)->Name("bmp32/ours");
BENCHMARK_CAPTURE(decodePicture, bmp32_sdl, bmp32, decodeWithSdl, decodeWithSdl)->Name("bmp32/sdl");
BENCHMARK_CAPTURE(decodePicture, jpeg_ours, jpeg, decodeWithOurs, decodeWithLibjpeg)->Name("jpeg/ours");
BENCHMARK_CAPTURE(decodePicture, jpeg_libjpeg, jpeg, decodeWithLibjpeg, decodeWithLibjpeg)->Name("jpeg/libjpeg");

}  // namespace
}  // namespace grub
