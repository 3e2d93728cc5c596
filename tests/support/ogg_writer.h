#pragma once

#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

#include <vorbis/vorbisenc.h>

#include "bytes.h"
#include "tone.h"

namespace grub {

/// The properties of an Ogg Vorbis file that tests vary.
struct OggKind {
    long rate = 44100;
    int serial = 1;           ///< number of the logical stream
    bool smallPages = false;  ///< a page for every few packets
};

/// Encodes samples with libvorbisenc; a target that includes this file must link it. `samples` holds an array for each
/// channel, all of one length.
class OggWriter {
public:
    /// Writes the headers.
    OggWriter(int channels, const OggKind& kind) : smallPages_(kind.smallPages) {
        vorbis_info_init(&info_);
        vorbis_encode_init_vbr(&info_, channels, kind.rate, 0.5F);
        vorbis_comment_init(&comment_);
        vorbis_analysis_init(&dsp_, &info_);
        vorbis_block_init(&dsp_, &block_);
        ogg_stream_init(&stream_, kind.serial);
        ogg_packet headers[3];
        vorbis_analysis_headerout(&dsp_, &comment_, &headers[0], &headers[1], &headers[2]);
        for (ogg_packet& header : headers) ogg_stream_packetin(&stream_, &header);
        ogg_page page;
        while (ogg_stream_flush(&stream_, &page) != 0) takePage(page);
    }
    OggWriter(const OggWriter&) = delete;
    OggWriter& operator=(const OggWriter&) = delete;
    ~OggWriter() {
        ogg_stream_clear(&stream_);
        vorbis_block_clear(&block_);
        vorbis_dsp_clear(&dsp_);
        vorbis_comment_clear(&comment_);
        vorbis_info_clear(&info_);
    }

    /// Encodes everything and ends the stream: the whole file.
    [[nodiscard]] Bytes write(const std::vector<std::vector<float>>& samples) {
        constexpr std::size_t kBlock = 1024;
        for (std::size_t at = 0; at < samples[0].size(); at += kBlock) {
            const std::size_t count = std::min(kBlock, samples[0].size() - at);
            float** const to = vorbis_analysis_buffer(&dsp_, static_cast<int>(count));
            for (std::size_t c = 0; c < samples.size(); ++c) std::copy_n(samples[c].data() + at, count, to[c]);
            encode(static_cast<int>(count));
        }
        encode(0);
        return file_;
    }

private:
    // 0 samples end the stream.
    void encode(int count) {
        vorbis_analysis_wrote(&dsp_, count);
        ogg_packet packet;
        ogg_page page;
        while (vorbis_analysis_blockout(&dsp_, &block_) == 1) {
            vorbis_analysis(&block_, nullptr);
            vorbis_bitrate_addblock(&block_);
            while (vorbis_bitrate_flushpacket(&dsp_, &packet) != 0) ogg_stream_packetin(&stream_, &packet);
        }
        const bool flush = smallPages_ || count == 0;
        while ((flush ? ogg_stream_flush(&stream_, &page) : ogg_stream_pageout(&stream_, &page)) != 0) {
            takePage(page);
        }
    }
    void takePage(const ogg_page& page) {
        file_.insert(file_.end(), page.header, page.header + page.header_len);
        file_.insert(file_.end(), page.body, page.body + page.body_len);
    }

    bool smallPages_;
    vorbis_info info_{};
    vorbis_comment comment_{};
    vorbis_dsp_state dsp_{};
    vorbis_block block_{};
    ogg_stream_state stream_{};
    Bytes file_;
};

/// The Ogg Vorbis file of these samples.
[[nodiscard]] inline Bytes writeOgg(const std::vector<std::vector<float>>& samples, const OggKind& kind = {}) {
    return OggWriter(static_cast<int>(samples.size()), kind).write(samples);
}

/// A page of an Ogg file; its body follows its header.
struct OggPage {
    std::size_t start;
    std::size_t headerBytes;
    std::size_t bodyBytes;
};

/// The pages of an Ogg file in order, up to the first that is not complete.
[[nodiscard]] inline std::vector<OggPage> oggPages(const Bytes& file) {
    constexpr std::size_t kFixed = 27;  // then a byte for each segment: its length
    std::vector<OggPage> pages;
    std::size_t at = 0;
    while (file.size() - at >= kFixed) {
        const std::size_t segments = file[at + kFixed - 1];
        if (file.size() - at < kFixed + segments) break;
        OggPage page{at, kFixed + segments, 0};
        for (std::size_t i = 0; i < segments; ++i) page.bodyBytes += file[at + kFixed + i];
        at += page.headerBytes;
        if (file.size() - at < page.bodyBytes) break;
        at += page.bodyBytes;
        pages.push_back(page);
    }
    return pages;
}

/// Corrects the checksum of a page, so that a decoder believes the changes in it.
inline void sealOggPage(Bytes& file, const OggPage& at) {
    unsigned char* const start = file.data() + at.start;
    ogg_page page{start, static_cast<long>(at.headerBytes), start + at.headerBytes, static_cast<long>(at.bodyBytes)};
    ogg_page_checksum_set(&page);
}

}  // namespace grub
