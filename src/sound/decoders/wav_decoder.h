#pragma once

#include <cstdint>

#include "block_pool.h"
#include "sound_decoder.h"

namespace grub {

/// PCM in a RIFF file. Looks for the chunks of the format and of the samples. In a file without these, it reads the
/// fields at their places in the usual header of 44 bytes, whatever the names of the chunks. Gives out views of the
/// stored samples.
class WavDecoder final : public SoundDecoder, public PoolAllocated<WavDecoder> {
public:
    /// Gives only samples that lie inside the file, whatever size a chunk claims. A file without a place for samples
    /// has 0 channels.
    explicit WavDecoder(const SharedBuffer& file);

    [[nodiscard]] std::unique_ptr<SoundDecoder> clone() const override;
    [[nodiscard]] std::uint16_t channels() const override { return channels_; }
    [[nodiscard]] std::uint32_t sampleRate() const override { return sampleRate_; }
    [[nodiscard]] std::uint16_t bitsPerSample() const override { return bitsPerSample_; }
    bool rewind() override;
    [[nodiscard]] std::uint32_t dataSize() const override { return static_cast<std::uint32_t>(samples_.size()); }
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
