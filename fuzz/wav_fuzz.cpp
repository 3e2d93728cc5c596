// Any file behind "RIFF" gives exactly the bytes that it announces, all of them out of the file.
#include <cstdlib>
#include <vector>

#include "sound_decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint8_t> file{'R', 'I', 'F', 'F'};
    file.insert(file.end(), data, data + size);
    const auto decoder =
        grub::createSoundDecoder(grub::SharedBuffer::view(file.data(), static_cast<std::uint32_t>(file.size())));
    std::size_t total = 0;
    while (true) {
        auto buffer = grub::SharedBuffer::create(100);
        const std::uint32_t count = decoder->read(buffer);
        if (count == 0) break;
        if (count > 100 || count != buffer.size()) std::abort();
        if (buffer.data() < file.data() || buffer.data() + count > file.data() + file.size()) std::abort();
        total += count;
    }
    if (total != decoder->dataSize()) std::abort();
    return 0;
}
