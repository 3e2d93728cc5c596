// A whole GIF decodes or is refused; the same bytes as bare LZW data give what the plain expander gives.
#include <algorithm>
#include <cstdlib>

#include "gif_lzw.h"
#include "image_decoder.h"
#include "plain_lzw.h"

namespace {

void decodeFile(std::span<const std::uint8_t> file) {
    const auto decoder =
        grub::createImageDecoder(grub::SharedBuffer::view(file.data(), static_cast<std::uint32_t>(file.size())));
    grub::SharedBuffer rgb;
    grub::SharedBuffer alpha;
    if (decoder != nullptr && decoder->decode(rgb, alpha) && rgb.size() != decoder->rowBytes(decoder->height())) {
        std::abort();
    }
}

// The sub-blocks' bytes in one piece, up to the first length of zero.
grub::Bytes contentOf(std::span<const std::uint8_t> blocks) {
    grub::Bytes content;
    while (!blocks.empty() && blocks[0] != 0) {
        const std::size_t length = std::min<std::size_t>(blocks[0], blocks.size() - 1);
        content.insert(content.end(), blocks.begin() + 1, blocks.begin() + 1 + static_cast<std::ptrdiff_t>(length));
        blocks = blocks.subspan(1 + length);
    }
    return content;
}

void compareExpanders(std::span<const std::uint8_t> input) {
    const unsigned minCodeSize = 1 + input[0] % 11u;
    const unsigned colours = 2u << (input[1] & 7);
    constexpr std::size_t kRoom = 5000;
    grub::Bytes palette;
    for (unsigned i = 0; i < colours; ++i) palette.insert(palette.end(), 3, static_cast<std::uint8_t>(i));
    grub::Bytes out(kRoom * 3);
    grub::LzwExpander expander(minCodeSize, palette, out);
    const auto blocks = input.subspan(2);
    const grub::LzwEnd end = expander.run(blocks);
    const auto plain = grub::expandPlainly(contentOf(blocks), minCodeSize, colours, kRoom);
    if (end != plain.end || expander.filled() != plain.indices.size() * 3) std::abort();
    for (std::size_t i = 0; i < plain.indices.size(); ++i) {
        if (out[i * 3] != plain.indices[i] || out[i * 3 + 2] != plain.indices[i]) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> input(data, size);
    decodeFile(input);
    if (size > 2) compareExpanders(input);
    return 0;
}
