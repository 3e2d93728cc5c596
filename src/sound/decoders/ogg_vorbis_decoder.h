#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include <ogg/ogg.h>
#include <vorbis/codec.h>

#include "block_pool.h"
#include "sound_decoder.h"

namespace grub {

/// The packets of the first logical stream of an Ogg file in memory, through libogg. Skips the pages of other streams,
/// the marks of a stream's end, and damaged pages: the sound ends only with the file.
class OggPackets {
public:
    /// What `next` found. A hole stands where damage took packets away.
    enum class Found { Packet, Hole, End };

    /// The bytes must outlive this object. Call `begin` first.
    explicit OggPackets(std::span<const std::uint8_t> file) : file_(file) {}
    OggPackets(const OggPackets&) = delete;
    OggPackets& operator=(const OggPackets&) = delete;
    ~OggPackets() { close(); }

    /// Goes to the file's start, whose first page chooses the stream. False when there is no page near the start.
    bool begin();
    /// Finds the next packet; its bytes are valid until the next call.
    Found next(ogg_packet& packet);
    /// Hands the next piece of the file to libogg before libogg needs it. False at the file's end.
    bool feed();

private:
    void close();
    bool takePage(ogg_page& page);

    std::span<const std::uint8_t> file_;
    std::span<const std::uint8_t> rest_;  // not yet with libogg
    ogg_sync_state sync_{};               // both states own memory only after `begin`
    ogg_stream_state stream_{};
};

/// What libvorbis keeps of one stream, from its first header on.
class VorbisSynthesis {
public:
    VorbisSynthesis();
    VorbisSynthesis(const VorbisSynthesis&) = delete;
    VorbisSynthesis& operator=(const VorbisSynthesis&) = delete;
    ~VorbisSynthesis();

    /// Takes in the next of the three headers. False when the packet is not the header that is due.
    bool takeHeader(ogg_packet& packet) { return vorbis_synthesis_headerin(&info_, &comment_, &packet) == 0; }
    /// Prepares for sound after all three headers. False without memory.
    bool start();
    /// Decodes a packet behind the headers. False when it holds no sound.
    bool decode(ogg_packet& packet);

    /// Samples of each channel that are decoded and not yet taken; `samples` points at an array of channels.
    [[nodiscard]] int ready(float**& samples) { return vorbis_synthesis_pcmout(&dsp_, &samples); }
    /// Takes that many samples of each channel.
    void take(int count) { vorbis_synthesis_read(&dsp_, count); }

    /// Channels and samples per second, as in the first header; 0 before it.
    [[nodiscard]] int channels() const { return info_.channels; }
    [[nodiscard]] long rate() const { return info_.rate; }

private:
    vorbis_info info_{};
    vorbis_comment comment_{};
    vorbis_dsp_state dsp_{};  // these two own memory only after `start`
    vorbis_block block_{};
};

/// The first logical stream of an Ogg file, which must hold Vorbis, as 16-bit samples of its first two channels. The
/// length of the sound is known only at the end of the file.
class OggVorbisDecoder final : public SoundDecoder, public PoolAllocated<OggVorbisDecoder> {
public:
    /// Reads the headers. With damaged headers `rewind` returns false.
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
    std::optional<VorbisSynthesis> synthesis_;  // absent when the headers are damaged
};

}  // namespace grub
