#include "pcm_pieces.h"

#include <algorithm>

#include "sound_decoder.h"

namespace grub {

namespace {

// How often one fill starts a loop again. Only sounds of a few milliseconds come that far; each start reads the headers
// anew, and a sound of one sample would keep the thread busy for half a minute.
constexpr int kMostRestarts = 64;

// Copies what fits and moves both on.
void copySome(std::span<const std::uint8_t>& from, std::span<std::uint8_t>& to) {
    const std::size_t count = std::min(from.size(), to.size());
    std::copy_n(from.begin(), count, to.begin());
    from = from.subspan(count);
    to = to.subspan(count);
}

}  // namespace

PcmPieces::PcmPieces(SoundDecoder& decoder, std::uint32_t bytes, std::uint32_t frameBytes, bool loop) {
    int restartsLeft = loop ? kMostRestarts : 0;
    bool rewound = false;
    while (size_ < bytes) {
        SharedBuffer buffer = SharedBuffer::create(bytes - size_);
        std::uint32_t count = decoder.read(buffer);
        count -= count % frameBytes;  // a file may end within a frame
        if (count > 0) {
            pieces_.push_back({std::move(buffer), count});
            size_ += count;
            rewound = false;
            continue;
        }
        if (rewound || restartsLeft-- == 0 || !decoder.rewind()) return;
        rewound = true;
    }
}

void PcmPieces::copyTo(std::span<std::uint8_t> first, std::span<std::uint8_t> second) const {
    for (const Piece& piece : pieces_) {
        auto from = piece.buffer.bytes().first(piece.size);
        copySome(from, first);
        copySome(from, second);
    }
    std::ranges::fill(first, std::uint8_t{0});
    std::ranges::fill(second, std::uint8_t{0});
}

}  // namespace grub
