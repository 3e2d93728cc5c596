#include "vorbis_file.h"

#include <vorbis/vorbisenc.h>

#include <algorithm>

namespace grub {

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

}  // namespace grub
