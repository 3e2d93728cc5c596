// A good Ogg Vorbis file with any bytes changed or the end cut off, and with right checksums, so that the damage gets
// beyond the pages: it decodes to an end, the same after each rewind.
#include <cstdlib>
#include <optional>

#include "byte_reader.h"
#include "ogg_writer.h"
#include "sound_decoder.h"

namespace {

using grub::Bytes;

constexpr std::uint8_t kCut = 0xC5;

// Input: a byte that chooses the file, then changes: a place (16 bits, modulo the size) and its new byte. One value
// cuts the file off instead.
Bytes damaged(grub::ByteReader input) {
    static const Bytes kFiles[] = {
        grub::writeOgg({grub::sine(3000, 440, 44100)}),
        grub::writeOgg({grub::sine(3000, 440, 22050), grub::sine(3000, 550, 22050)},
                       {.rate = 22050, .smallPages = true}),
    };
    Bytes file = kFiles[input.u8() % 2];
    while (input.remaining() >= 3 && !file.empty()) {
        const std::size_t place = input.u16() % file.size();
        file[place] = input.u8();
        if (file[place] == kCut) file.resize(place);
    }
    return file;
}

// How many bytes of PCM come; nothing may come without end.
std::size_t decodeAll(grub::SoundDecoder& decoder) {
    std::size_t total = 0;
    while (true) {
        auto buffer = grub::SharedBuffer::create(4096);
        const std::uint32_t count = decoder.read(buffer);
        if (count == 0) return total;
        total += count;
        if (count > 4096 || total > 100'000'000) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bytes file = damaged(grub::ByteReader({data, size}));
    for (const grub::OggPage& page : grub::oggPages(file)) sealOggPage(file, page);
    const auto decoder = grub::createSoundDecoder(grub::bufferOf(file));
    if (!decoder) return 0;
    std::optional<std::size_t> first;
    for (int round = 0; round < 2; ++round) {
        const bool opens = decoder->rewind();
        const std::size_t total = decodeAll(*decoder);
        if (!opens && total > 0) std::abort();
        if (first && *first != total) std::abort();
        first = total;
    }
    return 0;
}
