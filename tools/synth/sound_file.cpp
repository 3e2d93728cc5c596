#include "sound_file.h"

#include <vorbis/vorbisenc.h>
#include <algorithm>
#include <string_view>

#include "sound_decoder.h"

namespace grub {

// ---- WAV

namespace {

constexpr std::uint32_t kHeaderSize = 44;
constexpr std::uint32_t kSampleSize = 2;
constexpr std::uint16_t kPcm = 1;

/// Puts little-endian fields one behind the other.
class HeaderWriter {
public:
    explicit HeaderWriter(std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}

    void text(std::string_view letters) {
        for (const char letter : letters) bytes_.push_back(static_cast<std::uint8_t>(letter));
    }
    void u16(std::uint32_t value) {
        bytes_.push_back(static_cast<std::uint8_t>(value));
        bytes_.push_back(static_cast<std::uint8_t>(value >> 8));
    }
    void u32(std::uint32_t value) {
        u16(value & 0xFFFF);
        u16(value >> 16);
    }

private:
    std::vector<std::uint8_t>& bytes_;
};

}  // namespace

std::vector<std::uint8_t> wavBytes(std::span<const double> sound, int rate) {
    std::vector<std::int16_t> samples;
    samples.reserve(sound.size());
    for (const double sample : sound)
        samples.push_back(static_cast<std::int16_t>(std::lround(std::clamp(sample, -1.0, 1.0) * 32767)));
    return wavBytes(samples, 1, rate);
}

std::vector<std::uint8_t> wavBytes(std::span<const std::int16_t> samples, int channels, int rate) {
    std::vector<std::uint8_t> bytes;
    const auto dataSize = static_cast<std::uint32_t>(samples.size()) * kSampleSize;
    const auto samplesPerSecond = static_cast<std::uint32_t>(rate);
    const auto blockSize = static_cast<std::uint32_t>(channels) * kSampleSize;
    HeaderWriter out(bytes);
    out.text("RIFF");
    out.u32(kHeaderSize - 8 + dataSize);
    out.text("WAVEfmt ");
    out.u32(16);
    out.u16(kPcm);
    out.u16(static_cast<std::uint32_t>(channels));
    out.u32(samplesPerSecond);
    out.u32(samplesPerSecond * blockSize);
    out.u16(blockSize);
    out.u16(8 * kSampleSize);
    out.text("data");
    out.u32(dataSize);
    for (const std::int16_t sample : samples) out.u16(static_cast<std::uint16_t>(sample));
    return bytes;
}

// ---- Ogg Vorbis

namespace {

constexpr float kQuality = 0.4F;
/// A stream has a number that must differ only within one file; "Grub" here, so that builds repeat.
constexpr int kStreamSerial = 0x47727562;
constexpr std::size_t kPiece = 4096;  // samples handed over at once

/// The encoder with everything it owns, and the file as it grows.
class VorbisWriter {
public:
    VorbisWriter() {
        vorbis_info_init(&info_);
        vorbis_comment_init(&comment_);
    }
    VorbisWriter(const VorbisWriter&) = delete;
    VorbisWriter& operator=(const VorbisWriter&) = delete;
    ~VorbisWriter() {
        if (started_) {
            ogg_stream_clear(&stream_);
            vorbis_block_clear(&block_);
            vorbis_dsp_clear(&dsp_);
        }
        vorbis_comment_clear(&comment_);
        vorbis_info_clear(&info_);
    }

    bool start(std::size_t channels, int rate) {
        if (vorbis_encode_init_vbr(&info_, static_cast<long>(channels), rate, kQuality) != 0) return false;
        vorbis_analysis_init(&dsp_, &info_);
        vorbis_block_init(&dsp_, &block_);
        ogg_stream_init(&stream_, kStreamSerial);
        started_ = true;
        ogg_packet packets[3];
        vorbis_analysis_headerout(&dsp_, &comment_, &packets[0], &packets[1], &packets[2]);
        for (ogg_packet& packet : packets) ogg_stream_packetin(&stream_, &packet);
        ogg_page page;
        while (ogg_stream_flush(&stream_, &page) != 0) append(page);
        return true;
    }

    void write(const std::vector<Samples>& channels, std::size_t from, std::size_t count) {
        float** buffer = vorbis_analysis_buffer(&dsp_, static_cast<int>(count));
        for (std::size_t c = 0; c < channels.size(); ++c)
            for (std::size_t i = 0; i < count; ++i) buffer[c][i] = static_cast<float>(channels[c][from + i]);
        vorbis_analysis_wrote(&dsp_, static_cast<int>(count));
        takeBlocks();
    }

    std::vector<std::uint8_t> finish() {
        vorbis_analysis_wrote(&dsp_, 0);
        takeBlocks();
        return std::move(bytes_);
    }

private:
    void takeBlocks() {
        while (vorbis_analysis_blockout(&dsp_, &block_) == 1) {
            vorbis_analysis(&block_, nullptr);
            vorbis_bitrate_addblock(&block_);
            ogg_packet packet;
            while (vorbis_bitrate_flushpacket(&dsp_, &packet) != 0) {
                ogg_stream_packetin(&stream_, &packet);
                ogg_page page;
                while (ogg_stream_pageout(&stream_, &page) != 0) append(page);
            }
        }
    }

    void append(const ogg_page& page) {
        bytes_.insert(bytes_.end(), page.header, page.header + page.header_len);
        bytes_.insert(bytes_.end(), page.body, page.body + page.body_len);
    }

    vorbis_info info_{};
    vorbis_comment comment_{};
    vorbis_dsp_state dsp_{};
    vorbis_block block_{};
    ogg_stream_state stream_{};
    bool started_ = false;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace

std::vector<std::uint8_t> vorbisBytes(const std::vector<Samples>& channels, int rate) {
    VorbisWriter writer;
    if (channels.empty() || !writer.start(channels.size(), rate)) return {};
    for (std::size_t from = 0; from < channels[0].size(); from += kPiece)
        writer.write(channels, from, std::min(kPiece, channels[0].size() - from));
    return writer.finish();
}

// ---- back, with the game's own decoders

namespace {

constexpr std::uint32_t kReadSize = 65536;
constexpr double kFullScale = 32768;

/// Appends interleaved 16-bit samples.
void appendPcm(std::span<const std::uint8_t> pcm, std::vector<Samples>& channels) {
    const std::size_t frame = 2 * channels.size();
    for (std::size_t i = 0; i < pcm.size() / frame * channels.size(); ++i) {
        const auto sample = static_cast<std::int16_t>(pcm[2 * i] | pcm[2 * i + 1] << 8);
        channels[i % channels.size()].push_back(sample / kFullScale);
    }
}

}  // namespace

std::optional<SoundRecording> decodeSound(std::span<const std::uint8_t> file) {
    const auto decoder = createSoundDecoder(SharedBuffer::view(file.data(), static_cast<std::uint32_t>(file.size())));
    if (!decoder || !decoder->rewind() || decoder->bitsPerSample() != 16 || decoder->channels() == 0)
        return std::nullopt;
    SoundRecording recording{static_cast<int>(decoder->sampleRate()),
                             std::vector<Samples>(std::min<std::size_t>(decoder->channels(), 2))};
    for (;;) {
        SharedBuffer buffer = SharedBuffer::create(kReadSize);
        const std::uint32_t size = decoder->read(buffer);
        if (size == 0) break;
        appendPcm(buffer.bytes().first(size), recording.channels);
    }
    if (recording.rate <= 0 || recording.channels[0].empty()) return std::nullopt;
    return recording;
}

}  // namespace grub
