#include "ogg_packets.h"

#include <algorithm>

namespace grub {

namespace {

constexpr std::size_t kPiece = 8500;  // bytes handed over at once: about two pages of usual files

}  // namespace

bool OggPackets::begin() {
    close();
    rest_ = file_;
    feed();
    ogg_page page;
    if (ogg_sync_pageout(&sync_, &page) != 1) return false;
    return ogg_stream_init(&stream_, ogg_page_serialno(&page)) == 0 && ogg_stream_pagein(&stream_, &page) == 0;
}

// Both calls leave zeros, as before the first `begin`.
void OggPackets::close() {
    ogg_stream_clear(&stream_);
    ogg_sync_clear(&sync_);
}

OggPackets::Found OggPackets::next(ogg_packet& packet) {
    while (true) {
        const int given = ogg_stream_packetout(&stream_, &packet);
        if (given != 0) return given > 0 ? Found::Packet : Found::Hole;
        ogg_page page;
        if (!takePage(page)) return Found::End;
        ogg_stream_pagein(&stream_, &page);  // refuses pages of other streams
    }
}

// False at the file's end.
bool OggPackets::takePage(ogg_page& page) {
    while (true) {
        const int given = ogg_sync_pageout(&sync_, &page);
        if (given == 1) return true;
        // Negative: bytes were skipped that are no page; there may be one behind them.
        if (given == 0 && !feed()) return false;
    }
}

bool OggPackets::feed() {
    const auto piece = rest_.first(std::min(rest_.size(), kPiece));
    if (piece.empty()) return false;
    char* const memory = ogg_sync_buffer(&sync_, static_cast<long>(piece.size()));
    if (memory == nullptr) return false;
    std::copy(piece.begin(), piece.end(), memory);
    rest_ = rest_.subspan(piece.size());
    return ogg_sync_wrote(&sync_, static_cast<long>(piece.size())) == 0;
}

}  // namespace grub
