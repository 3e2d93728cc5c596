#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

namespace grub {

/// The LZW codes of a GIF image, least significant bit first, out of the file's data sub-blocks, whose boundaries the
/// codes do not see.
class GifCodeReader {
public:
    /// What `read` gives when a sub-block of length zero, or the end of the file, comes before the code's last bit.
    static constexpr std::uint32_t kNoCode = 0xFFFFFFFF;

    /// The sub-blocks and whatever follows them in the file.
    explicit GifCodeReader(std::span<const std::uint8_t> blocks)
        : cursor_(blocks.data()), blockEnd_(blocks.data()), fileEnd_(blocks.data() + blocks.size()) {}

    /// The next code of `width` bits, 1 to 12.
    std::uint32_t read(unsigned width) {
        if (bitCount_ < width && !refill(width)) return kNoCode;
        const auto code = static_cast<std::uint32_t>(bits_) & ((1u << width) - 1);
        bits_ >>= width;
        bitCount_ -= width;
        return code;
    }

private:
    // Takes in as many bytes as fit. False when fewer than `wanted` bits can be had.
    bool refill(unsigned wanted) {
        if (blockEnd_ - cursor_ >= 8) {
            takeEight();
            return true;
        }
        while (bitCount_ <= 56) {
            if (cursor_ == blockEnd_ && !openBlock()) return bitCount_ >= wanted;
            bits_ |= std::uint64_t{*cursor_++} << bitCount_;
            bitCount_ += 8;
        }
        return true;
    }

    // Eight bytes at once. Those that do not fit are not counted and come again, onto the same bits.
    void takeEight() {
        std::uint64_t bytes = 0;
        for (unsigned i = 0; i < 8; ++i) bytes |= std::uint64_t{cursor_[i]} << 8 * i;
        bits_ |= bytes << bitCount_;
        const unsigned taken = (63 - bitCount_) / 8;
        cursor_ += taken;
        bitCount_ += taken * 8;
    }

    // Steps over a length byte. A block that the file cuts short counts with what there is of it.
    bool openBlock() {
        if (cursor_ == fileEnd_ || *cursor_ == 0) return false;
        const std::ptrdiff_t length = *cursor_++;
        blockEnd_ = cursor_ + std::min(length, fileEnd_ - cursor_);
        return cursor_ != blockEnd_;
    }

    const std::uint8_t* cursor_;
    const std::uint8_t* blockEnd_;
    const std::uint8_t* fileEnd_;
    std::uint64_t bits_ = 0;
    unsigned bitCount_ = 0;
};

}  // namespace grub
