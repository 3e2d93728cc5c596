#pragma once

#include <cstdint>
#include <span>

#include <ogg/ogg.h>

namespace grub {

/// The packets of the first logical stream of an Ogg file in memory. Pages of other streams, marks of a stream's end
/// and damaged pages are passed over: only the end of the file is an end.
class OggPackets {
public:
    /// What `next` found. A hole stands where damage took packets away.
    enum class Found { Packet, Hole, End };

    /// The bytes must outlive this. Call `begin` first.
    explicit OggPackets(std::span<const std::uint8_t> file) : file_(file) {}
    OggPackets(const OggPackets&) = delete;
    OggPackets& operator=(const OggPackets&) = delete;
    ~OggPackets() { close(); }

    /// Goes to the file's start, whose first page chooses the stream. False when there is no page near the start.
    bool begin();
    /// The next packet; its bytes are valid until the next call.
    Found next(ogg_packet& packet);
    /// Hands the next piece of the file to libogg ahead of need. False at the file's end.
    bool feed();

private:
    void close();
    bool takePage(ogg_page& page);

    std::span<const std::uint8_t> file_;
    std::span<const std::uint8_t> rest_;  // not yet with libogg
    ogg_sync_state sync_{};               // both states own memory only after `begin`
    ogg_stream_state stream_{};
};

}  // namespace grub
