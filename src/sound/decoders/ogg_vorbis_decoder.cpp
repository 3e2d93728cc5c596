#include "ogg_vorbis_decoder.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace grub {

namespace {

constexpr int kHeaders = 3;  // identification, comments, setup
constexpr unsigned kSampleBytes = 2;

// The nearest sample of 16 bits. The sum has no bits left for a fraction, so its low bits are the rounded number; and
// since the bits of floats are ordered like whole numbers, the limits hold for them, whatever the value is. Thus the
// compiler can take several samples at once, which it cannot with the library's ways to round and to clamp.
std::int32_t toSample(float value) {
    constexpr float kShift = 12582912.0F;  // 1.5 * 2^23
    constexpr auto kZero = std::bit_cast<std::int32_t>(kShift);
    const auto bits = std::bit_cast<std::int32_t>(value * 32767.0F + kShift);
    return std::max(kZero - 32768, std::min(kZero + 32767, bits)) - kZero;
}

static_assert(std::endian::native == std::endian::little, "PCM is written as numbers of this machine");

void putMono(std::uint8_t* to, const float* samples, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto sample = static_cast<std::int16_t>(toSample(samples[i]));
        std::memcpy(to + i * sizeof sample, &sample, sizeof sample);
    }
}

// Both samples of a frame are one number, for the same reason.
void putStereo(std::uint8_t* to, const float* left, const float* right, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto low = static_cast<std::uint32_t>(toSample(left[i])) & 0xFFFF;
        const std::uint32_t frame = static_cast<std::uint32_t>(toSample(right[i])) << 16 | low;
        std::memcpy(to + i * sizeof frame, &frame, sizeof frame);
    }
}

// Interleaves the first two channels, or writes the only one.
void putFrames(std::uint8_t* to, float* const* samples, unsigned channels, std::size_t count) {
    if (channels == 1) return putMono(to, samples[0], count);
    putStereo(to, samples[0], samples[1], count);
}

}  // namespace

OggVorbisDecoder::OggVorbisDecoder(const SharedBuffer& source) : SoundDecoder(source), packets_(file()) { open(); }

std::unique_ptr<SoundDecoder> OggVorbisDecoder::clone() const { return std::make_unique<OggVorbisDecoder>(source()); }

std::uint16_t OggVorbisDecoder::channels() const {
    return synthesis_ ? static_cast<std::uint16_t>(synthesis_->channels()) : std::uint16_t{0};
}

std::uint32_t OggVorbisDecoder::sampleRate() const {
    return synthesis_ ? static_cast<std::uint32_t>(synthesis_->rate()) : 0;
}

bool OggVorbisDecoder::rewind() { return open(); }

bool OggVorbisDecoder::open() {
    synthesis_.emplace();
    if (packets_.begin() && readHeaders() && synthesis_->start()) return true;
    synthesis_.reset();
    return false;
}

bool OggVorbisDecoder::readHeaders() {
    ogg_packet packet;
    for (int i = 0; i < kHeaders; ++i) {
        if (packets_.next(packet) != OggPackets::Found::Packet || !synthesis_->takeHeader(packet)) return false;
    }
    packets_.feed();
    return true;
}

std::uint32_t OggVorbisDecoder::read(SharedBuffer& buffer) {
    std::uint8_t* const out = buffer.writableData();
    if (!synthesis_ || out == nullptr) return 0;
    const unsigned channels = std::min<unsigned>(this->channels(), 2);
    const unsigned frameBytes = channels * kSampleBytes;
    std::uint32_t written = 0;
    while (buffer.size() - written >= frameBytes) {
        float** samples = nullptr;
        const int ready = synthesis_->ready(samples);
        if (ready > 0) {
            const auto count = std::min(static_cast<std::uint32_t>(ready), (buffer.size() - written) / frameBytes);
            putFrames(out + written, samples, channels, count);
            synthesis_->take(static_cast<int>(count));
            written += count * frameBytes;
        } else if (!decodePacket()) {
            break;
        }
    }
    return written;
}

// False at the file's end. Packets that hold no sound, and holes, are passed over.
bool OggVorbisDecoder::decodePacket() {
    ogg_packet packet;
    while (true) {
        const OggPackets::Found found = packets_.next(packet);
        if (found == OggPackets::Found::End) return false;
        if (found == OggPackets::Found::Packet && synthesis_->decode(packet)) return true;
    }
}

}  // namespace grub
