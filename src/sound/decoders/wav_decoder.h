#pragma once

#include <cstdint>

#include "block_pool.h"
#include "sound_decoder.h"

namespace grub {

/// PCM in a RIFF file. Chunks are looked for; a file without those of the format and the samples is taken to have its
/// fields at the places of the usual header of 44 bytes, whatever its chunks are called. The stored samples are given
/// out as they are, without being copied.
class WavDecoder final : public SoundDecoder, public PoolAllocated<WavDecoder> {
public:
    /// Only the file's own size is trusted: samples that it does not hold do not count. A file without a place for
    /// samples has 0 channels.
    explicit WavDecoder(const SharedBuffer& file);

    [[nodiscard]] std::unique_ptr<SoundDecoder> clone() const override;
    [[nodiscard]] std::uint16_t channels() const override { return channels_; }
    [[nodiscard]] std::uint32_t sampleRate() const override { return sampleRate_; }
    [[nodiscard]] std::uint16_t bitsPerSample() const override { return bitsPerSample_; }
    bool rewind() override;
    [[nodiscard]] std::uint32_t dataSize() const override { return static_cast<std::uint32_t>(samples_.size()); }
    /// Replaces `buffer` by a view.
    std::uint32_t read(SharedBuffer& buffer) override;

private:
    bool readChunks();
    void readUsualHeader();
    void readFormat(std::span<const std::uint8_t> chunk);

    std::uint16_t channels_ = 0;
    std::uint32_t sampleRate_ = 0;
    std::uint16_t bitsPerSample_ = 0;
    std::span<const std::uint8_t> samples_;
    std::span<const std::uint8_t> rest_;  // of the samples, not yet read
};

}  // namespace grub
