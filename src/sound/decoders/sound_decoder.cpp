#include "sound_decoder.h"

#include "byte_reader.h"
#include "ogg_vorbis_decoder.h"
#include "wav_decoder.h"

namespace grub {

namespace {

// Four characters, as a little-endian number.
constexpr std::uint32_t kOggS = 0x5367674F;
constexpr std::uint32_t kRiff = 0x46464952;

}  // namespace

std::unique_ptr<SoundDecoder> createSoundDecoder(const SharedBuffer& file) {
    switch (ByteReader(file.bytes()).u32()) {
        case kOggS: return std::make_unique<OggVorbisDecoder>(file);
        case kRiff: return std::make_unique<WavDecoder>(file);
        default: return nullptr;
    }
}

}  // namespace grub
