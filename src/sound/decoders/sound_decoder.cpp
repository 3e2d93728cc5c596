#include "sound_decoder.h"

#include <algorithm>

#include "byte_reader.h"
#include "ogg_vorbis_decoder.h"

namespace grub {

namespace {

// Four characters, as a little-endian number.
constexpr std::uint32_t kOggS = 0x5367674F;
constexpr std::uint32_t kRiff = 0x46464952;
constexpr std::uint32_t kFormatChunk = 0x20746D66;
constexpr std::uint32_t kDataChunk = 0x61746164;

constexpr std::size_t kRiffHeader = 12;  // "RIFF", size, "WAVE"
constexpr std::size_t kFormatAt = 20;    // of the usual header: behind the chunk's id and size
constexpr std::size_t kFormatSize = 16;  // of plain PCM; longer format chunks begin with the same fields
constexpr std::size_t kDataIdSize = 4;

std::span<const std::uint8_t> takeAtMost(ByteReader& reader, std::size_t count) {
    return reader.take(std::min(count, reader.remaining()));
}

}  // namespace

WavDecoder::WavDecoder(const SharedBuffer& source) : SoundDecoder(source) {
    if (!readChunks()) readUsualHeader();
    rest_ = samples_;
}

// Ignores samples that stand before the format. False without a chunk of samples behind it.
bool WavDecoder::readChunks() {
    ByteReader reader(file());
    reader.skip(kRiffHeader);
    bool formatKnown = false;
    while (true) {
        const std::uint32_t id = reader.u32();
        const std::uint32_t size = reader.u32();
        if (!reader.ok()) return false;
        const auto chunk = takeAtMost(reader, size);
        if (size % 2 == 1) takeAtMost(reader, 1);  // chunks begin at even places
        if (id == kFormatChunk && chunk.size() >= kFormatSize) {
            readFormat(chunk);
            formatKnown = true;
        }
        if (id == kDataChunk && formatKnown) {
            samples_ = chunk;
            return true;
        }
    }
}

void WavDecoder::readUsualHeader() {
    ByteReader reader(file());
    reader.skip(kFormatAt);
    readFormat(reader.take(kFormatSize));
    reader.skip(kDataIdSize);
    const std::uint32_t size = reader.u32();
    samples_ = takeAtMost(reader, size);
    if (!reader.ok()) channels_ = 0;
}

void WavDecoder::readFormat(std::span<const std::uint8_t> chunk) {
    ByteReader reader(chunk);
    reader.skip(2);  // format tag: the game takes all files for PCM
    channels_ = reader.u16();
    sampleRate_ = reader.u32();
    reader.skip(6);  // bytes per second, block align: both follow from the rest
    bitsPerSample_ = reader.u16();
}

std::unique_ptr<SoundDecoder> WavDecoder::clone() const { return std::make_unique<WavDecoder>(source()); }

bool WavDecoder::rewind() {
    rest_ = samples_;
    return true;
}

std::uint32_t WavDecoder::read(SharedBuffer& buffer) {
    const auto piece = rest_.first(std::min<std::size_t>(buffer.size(), rest_.size()));
    rest_ = rest_.subspan(piece.size());
    if (!piece.empty()) buffer = SharedBuffer::view(piece.data(), static_cast<std::uint32_t>(piece.size()));
    return static_cast<std::uint32_t>(piece.size());
}

std::unique_ptr<SoundDecoder> createSoundDecoder(const SharedBuffer& file) {
    switch (ByteReader(file.bytes()).u32()) {
        case kOggS: return std::make_unique<OggVorbisDecoder>(file);
        case kRiff: return std::make_unique<WavDecoder>(file);
        default: return nullptr;
    }
}

}  // namespace grub
