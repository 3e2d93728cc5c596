#pragma once

#include <cstdint>
#include <string_view>

#include "bytes.h"

namespace grub {

/// The parts of a WAV file that tests vary. Numbers go into the header unchecked.
struct WavParts {
    unsigned channels = 1;
    std::uint32_t rate = 44100;
    unsigned bits = 16;
    Bytes samples{};
    Bytes formatTail{};  ///< behind the 16 bytes of the format
    Bytes beforeData{};  ///< whole chunks between format and data
};

/// One chunk: id of four characters, size, content, filled up to an even size.
[[nodiscard]] inline Bytes riffChunk(std::string_view id, const Bytes& content) {
    Bytes chunk(id.begin(), id.end());
    append(chunk, static_cast<std::uint32_t>(content.size()), 4);
    chunk.insert(chunk.end(), content.begin(), content.end());
    if (content.size() % 2 == 1) chunk.push_back(0);
    return chunk;
}

/// The file of these parts: 44 bytes and the samples when there is nothing extra.
[[nodiscard]] inline Bytes writeWav(const WavParts& parts) {
    Bytes format;
    const std::uint32_t block = parts.channels * parts.bits / 8;
    append(format,
           {{1, 2}, {parts.channels, 2}, {parts.rate, 4}, {parts.rate * block, 4}, {block, 2}, {parts.bits, 2}});
    format.insert(format.end(), parts.formatTail.begin(), parts.formatTail.end());

    Bytes body{'W', 'A', 'V', 'E'};
    for (const Bytes& part : {riffChunk("fmt ", format), parts.beforeData, riffChunk("data", parts.samples)})
        body.insert(body.end(), part.begin(), part.end());
    return riffChunk("RIFF", body);
}

/// Samples of 16 bits as a file stores them.
[[nodiscard]] inline Bytes sampleBytes(std::span<const std::int16_t> samples) {
    Bytes bytes;
    bytes.reserve(samples.size() * 2);
    for (const std::int16_t sample : samples) append(bytes, static_cast<std::uint16_t>(sample), 2);
    return bytes;
}

}  // namespace grub
