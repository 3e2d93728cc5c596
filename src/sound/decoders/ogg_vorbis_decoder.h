#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "block_pool.h"
#include "ogg_packets.h"
#include "sound_decoder.h"
#include "vorbis_synthesis.h"

namespace grub {

/// The first logical stream of an Ogg file, which holds Vorbis: 16 bits a sample, of the first two channels. How long
/// the sound is shows only at its end, which is the end of the file.
class OggVorbisDecoder final : public SoundDecoder, public PoolAllocated<OggVorbisDecoder> {
public:
    /// Reads the headers. A file whose headers make no sense gives a decoder that cannot be rewound.
    explicit OggVorbisDecoder(const SharedBuffer& file);

    [[nodiscard]] std::unique_ptr<SoundDecoder> clone() const override;
    [[nodiscard]] std::uint16_t channels() const override;
    [[nodiscard]] std::uint32_t sampleRate() const override;
    [[nodiscard]] std::uint16_t bitsPerSample() const override { return 16; }
    bool rewind() override;
    [[nodiscard]] std::uint32_t dataSize() const override { return 0; }
    /// Writes into `buffer`, which must be writable.
    std::uint32_t read(SharedBuffer& buffer) override;

private:
    bool open();
    bool readHeaders();
    bool decodePacket();

    OggPackets packets_;
    std::optional<VorbisSynthesis> synthesis_;  // absent when the headers make no sense
};

}  // namespace grub
