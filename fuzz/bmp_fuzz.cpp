// Any file behind "BM" decodes or is refused, with outputs of the size that its header gives.
#include <cstdlib>
#include <vector>

#include "image_decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint8_t> file{'B', 'M'};
    file.insert(file.end(), data, data + size);
    const auto decoder =
        grub::createImageDecoder(grub::SharedBuffer::view(file.data(), static_cast<std::uint32_t>(file.size())));
    grub::SharedBuffer rgb;
    grub::SharedBuffer alpha;
    if (decoder->decode(rgb, alpha)) {
        const std::size_t pixels = std::size_t{decoder->width()} * decoder->height();
        if (rgb.size() != pixels * 3 || (!alpha.empty() && alpha.size() != pixels)) std::abort();
    }
    return 0;
}
