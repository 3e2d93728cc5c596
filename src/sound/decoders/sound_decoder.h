#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "shared_buffer.h"

namespace grub {

/// One sound file in memory, turned into PCM on demand. A decoder belongs to one thread at a time; clones of one file
/// may decode at once. Damage never shows but as a sound that ends early, or that cannot be rewound.
class SoundDecoder {
public:
    SoundDecoder(const SoundDecoder&) = delete;
    SoundDecoder& operator=(const SoundDecoder&) = delete;
    virtual ~SoundDecoder() = default;

    /// Another decoder over the same bytes, at the start.
    [[nodiscard]] virtual std::unique_ptr<SoundDecoder> clone() const = 0;
    /// As the file says it: any number, 0 included. Whoever makes a sound of it checks.
    [[nodiscard]] virtual std::uint16_t channels() const = 0;
    /// Samples per second and channel; any number, as above.
    [[nodiscard]] virtual std::uint32_t sampleRate() const = 0;
    /// Of one sample of one channel; any number, as above.
    [[nodiscard]] virtual std::uint16_t bitsPerSample() const = 0;
    /// Back to the first sample; also what starts a decoder. False when there is nothing to decode.
    virtual bool rewind() = 0;
    /// All PCM bytes; 0 when only decoding tells.
    [[nodiscard]] virtual std::uint32_t dataSize() const = 0;
    /// The next PCM, at most `buffer.size()` bytes: how many there are, 0 at the end. They are the buffer's first
    /// bytes, or the buffer is replaced by a view of the decoder's own, which lives as long as the decoder. So a buffer
    /// serves for one read only.
    virtual std::uint32_t read(SharedBuffer& buffer) = 0;

protected:
    /// Keeps the file's bytes alive as long as the decoder.
    explicit SoundDecoder(SharedBuffer source) : source_(std::move(source)) {}

    /// The complete file, and its bytes.
    [[nodiscard]] const SharedBuffer& source() const { return source_; }
    [[nodiscard]] std::span<const std::uint8_t> file() const { return source_.bytes(); }

private:
    SharedBuffer source_;
};

/// The decoder for a file, chosen by its first four bytes only ("OggS" or "RIFF"); null for anything else. What follows
/// may still turn out to be no sound.
[[nodiscard]] std::unique_ptr<SoundDecoder> createSoundDecoder(const SharedBuffer& file);

}  // namespace grub
