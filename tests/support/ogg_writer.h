#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <span>
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

/// The Ogg Vorbis file of these samples: an array for each channel, all of one length. It encodes with libvorbisenc; a
/// target that includes this file must link it.
[[nodiscard]] inline Bytes writeOgg(const std::vector<std::vector<float>>& samples, const OggKind& kind = {}) {
    vorbis_info info;
    vorbis_comment comment;
    vorbis_dsp_state dsp;
    vorbis_block block;
    ogg_stream_state stream;
    vorbis_info_init(&info);
    vorbis_encode_init_vbr(&info, static_cast<long>(samples.size()), kind.rate, 0.5F);
    vorbis_comment_init(&comment);
    vorbis_analysis_init(&dsp, &info);
    vorbis_block_init(&dsp, &block);
    ogg_stream_init(&stream, kind.serial);

    Bytes file;
    const auto takePages = [&](auto takePage) {
        for (ogg_page page; takePage(&stream, &page) != 0;) {
            file.insert(file.end(), page.header, page.header + page.header_len);
            file.insert(file.end(), page.body, page.body + page.body_len);
        }
    };
    ogg_packet headers[3];
    vorbis_analysis_headerout(&dsp, &comment, &headers[0], &headers[1], &headers[2]);
    for (ogg_packet& header : headers) ogg_stream_packetin(&stream, &header);
    takePages(ogg_stream_flush);
    for (std::size_t at = 0, count = 1; count > 0; at += count) {
        count = std::min<std::size_t>(1024, samples[0].size() - at);  // a block without samples ends the stream
        float** const to = vorbis_analysis_buffer(&dsp, static_cast<int>(count));
        for (std::size_t c = 0; c < samples.size(); ++c) std::copy_n(samples[c].data() + at, count, to[c]);
        vorbis_analysis_wrote(&dsp, static_cast<int>(count));
        while (vorbis_analysis_blockout(&dsp, &block) == 1) {
            vorbis_analysis(&block, nullptr);
            vorbis_bitrate_addblock(&block);
            for (ogg_packet packet; vorbis_bitrate_flushpacket(&dsp, &packet) != 0;)
                ogg_stream_packetin(&stream, &packet);
        }
        takePages(kind.smallPages || count == 0 ? ogg_stream_flush : ogg_stream_pageout);
    }
    ogg_stream_clear(&stream);
    vorbis_block_clear(&block);
    vorbis_dsp_clear(&dsp);
    vorbis_comment_clear(&comment);
    vorbis_info_clear(&info);
    return file;
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
    for (std::size_t at = 0; at + kFixed <= file.size();) {
        const OggPage head{at, kFixed + file[at + kFixed - 1], 0};
        if (file.size() - at < head.headerBytes) break;
        const auto lengths = std::span(file).subspan(at + kFixed, head.headerBytes - kFixed);
        const OggPage page{at, head.headerBytes, std::accumulate(lengths.begin(), lengths.end(), std::size_t{0})};
        at += page.headerBytes + page.bodyBytes;
        if (at <= file.size()) pages.push_back(page);
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
