#include "ogg_vorbis_decoder.h"

#include <algorithm>
#include <bit>
#include <span>

namespace grub {

namespace {

constexpr int kHeaders = 3;  // identification, comments, setup
constexpr unsigned kSampleBytes = 2;

// Rounds to the nearest whole number. The sum has no bits left for a fraction, and its low bits are the number: a plain
// conversion with rounding is a library call, which costs as much as the decoding of the sample.
std::int16_t toSample(float value) {
    constexpr float kShift = 12582912.0F;  // 1.5 * 2^23
    // In this order even a value that is not a number becomes one.
    const float clamped = std::max(-32768.0F, std::min(32767.0F, value * 32767.0F));
    return static_cast<std::int16_t>(std::bit_cast<std::int32_t>(clamped + kShift) -
                                     std::bit_cast<std::int32_t>(kShift));
}

void putSample(std::uint8_t* to, float value) {
    const auto sample = static_cast<std::uint16_t>(toSample(value));
    to[0] = static_cast<std::uint8_t>(sample);
    to[1] = static_cast<std::uint8_t>(sample >> 8);
}

// Interleaves the first `channels` channels, 1 or 2.
void putFrames(std::uint8_t* to, float* const* samples, unsigned channels, std::size_t count) {
    if (channels == 1) {
        for (std::size_t i = 0; i < count; ++i) putSample(to + i * kSampleBytes, samples[0][i]);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        putSample(to + i * 2 * kSampleBytes, samples[0][i]);
        putSample(to + i * 2 * kSampleBytes + kSampleBytes, samples[1][i]);
    }
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
