#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "shared_buffer.h"

namespace grub {

class SoundDecoder;

/// The next PCM of a decoder in the pieces in which it comes: views of a file stay views, so each byte is copied once,
/// into the device's memory. Must not outlive the decoder.
class PcmPieces {
public:
    /// Takes whole frames, at most `bytes`, which is a number of whole frames itself. With `loop` a decoder that has
    /// ended is rewound and goes on; less than `bytes` then means that there is next to nothing to be had from it.
    PcmPieces(SoundDecoder& decoder, std::uint32_t bytes, std::uint32_t frameBytes, bool loop);

    /// How many bytes came.
    [[nodiscard]] std::uint32_t size() const { return size_; }
    /// Copies them to the start of `first` and on into `second`, and fills what is left of both with zeros. Both
    /// together have room for all.
    void copyTo(std::span<std::uint8_t> first, std::span<std::uint8_t> second) const;

private:
    struct Piece {
        SharedBuffer buffer;
        std::uint32_t size;  // its first bytes
    };

    std::vector<Piece> pieces_;
    std::uint32_t size_ = 0;
};

}  // namespace grub
