#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "block_pool.h"
#include "resource_source.h"

namespace grub {

/// Turns one sound file in memory into PCM on demand. A decoder belongs to one thread at a time; clones of one decoder
/// may work at the same time. A damaged file gives a sound that ends early, or a decoder that cannot be rewound.
class SoundDecoder {
public:
    SoundDecoder(const SoundDecoder&) = delete;
    SoundDecoder& operator=(const SoundDecoder&) = delete;
    virtual ~SoundDecoder() = default;

    /// Another decoder over the same bytes, at the start.
    [[nodiscard]] virtual std::unique_ptr<SoundDecoder> clone() const = 0;
    /// The number in the file, unchecked: it may be 0. The code that makes a sound of it checks it.
    [[nodiscard]] virtual std::uint16_t channels() const = 0;
    /// Samples per second and channel, unchecked.
    [[nodiscard]] virtual std::uint32_t sampleRate() const = 0;
    /// Bits of one sample of one channel, unchecked.
    [[nodiscard]] virtual std::uint16_t bitsPerSample() const = 0;
    /// Goes to the first sample. Call it before the first `read` too. False when there is nothing to decode.
    virtual bool rewind() = 0;
    /// Bytes of PCM in all; 0 when the decoder does not know before its end.
    [[nodiscard]] virtual std::uint32_t dataSize() const = 0;
    /// Gives the next PCM, at most `buffer.size()` bytes, and returns how many; 0 at the end. Fills the start of
    /// `buffer`, or replaces it by a view of bytes that live as long as the decoder. So use a buffer for one read only.
    virtual std::uint32_t read(SharedBuffer& buffer) = 0;

protected:
    /// Keeps the file's bytes alive as long as the decoder.
    explicit SoundDecoder(SharedBuffer source) : source_(std::move(source)) {}

    /// The complete file.
    [[nodiscard]] const SharedBuffer& source() const { return source_; }
    [[nodiscard]] std::span<const std::uint8_t> file() const { return source_.bytes(); }

private:
    SharedBuffer source_;
};

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

/// Chooses a decoder by the first four bytes of the file ("OggS" or "RIFF"); null for other bytes. It does not look at
/// the rest of the file.
[[nodiscard]] std::unique_ptr<SoundDecoder> createSoundDecoder(const SharedBuffer& file);

}  // namespace grub
