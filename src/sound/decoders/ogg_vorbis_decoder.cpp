#include "ogg_vorbis_decoder.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace grub {

namespace {

constexpr std::size_t kPiece = 8500;  // bytes that libogg gets at once: about two pages of usual files
constexpr int kHeaders = 3;           // identification, comments, setup
constexpr unsigned kSampleBytes = 2;

// The nearest 16-bit sample. The sum has no bits left for a fraction, so its low bits are the rounded number. The bits
// of floats are ordered like whole numbers, so the limits work on the bits, for every value. In this form the compiler
// converts several samples at once; with the library's functions for rounding and clamping it cannot.
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

// Writes both samples of a frame as one number, for the same reason.
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

bool OggPackets::begin() {
    close();
    rest_ = file_;
    feed();
    ogg_page page;
    if (ogg_sync_pageout(&sync_, &page) != 1) return false;
    return ogg_stream_init(&stream_, ogg_page_serialno(&page)) == 0 && ogg_stream_pagein(&stream_, &page) == 0;
}

// Both calls leave the states zero, as before the first `begin`.
void OggPackets::close() {
    ogg_stream_clear(&stream_);
    ogg_sync_clear(&sync_);
}

OggPackets::Found OggPackets::next(ogg_packet& packet) {
    while (true) {
        const int given = ogg_stream_packetout(&stream_, &packet);
        if (given != 0) return given > 0 ? Found::Packet : Found::Hole;
        ogg_page page;
        if (!takePage(page)) return Found::End;
        ogg_stream_pagein(&stream_, &page);  // libogg refuses pages of other streams
    }
}

// False at the file's end.
bool OggPackets::takePage(ogg_page& page) {
    while (true) {
        const int given = ogg_sync_pageout(&sync_, &page);
        if (given == 1) return true;
        // Negative: libogg skipped bytes that are not a page; a page may follow them.
        if (given == 0 && !feed()) return false;
    }
}

bool OggPackets::feed() {
    const auto piece = rest_.first(std::min(rest_.size(), kPiece));
    if (piece.empty()) return false;
    char* const memory = ogg_sync_buffer(&sync_, static_cast<long>(piece.size()));
    if (memory == nullptr) return false;
    std::copy(piece.begin(), piece.end(), memory);
    rest_ = rest_.subspan(piece.size());
    return ogg_sync_wrote(&sync_, static_cast<long>(piece.size())) == 0;
}

VorbisSynthesis::VorbisSynthesis() {
    vorbis_info_init(&info_);
    vorbis_comment_init(&comment_);
}

VorbisSynthesis::~VorbisSynthesis() {
    vorbis_block_clear(&block_);
    vorbis_dsp_clear(&dsp_);
    vorbis_comment_clear(&comment_);
    vorbis_info_clear(&info_);  // last: the others use it
}

bool VorbisSynthesis::start() {
    return vorbis_synthesis_init(&dsp_, &info_) == 0 && vorbis_block_init(&dsp_, &block_) == 0;
}

bool VorbisSynthesis::decode(ogg_packet& packet) {
    return vorbis_synthesis(&block_, &packet) == 0 && vorbis_synthesis_blockin(&dsp_, &block_) == 0;
}

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

// Skips holes and packets that hold no sound. False at the file's end.
bool OggVorbisDecoder::decodePacket() {
    ogg_packet packet;
    while (true) {
        const OggPackets::Found found = packets_.next(packet);
        if (found == OggPackets::Found::End) return false;
        if (found == OggPackets::Found::Packet && synthesis_->decode(packet)) return true;
    }
}

}  // namespace grub
