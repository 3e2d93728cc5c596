#include "gif_lzw.h"

#include <algorithm>
#include <cstring>

namespace grub {

namespace {

constexpr std::size_t kPixel = 3;  // bytes

// Reads the LZW codes of a GIF image, least significant bit first. The codes run on across the boundaries of the file's
// data sub-blocks.
class GifCodeReader {
public:
    // What `read` returns when a sub-block of length zero, or the end of the file, comes before the code's last bit.
    static constexpr std::uint32_t kNoCode = 0xFFFFFFFF;

    // `blocks` holds the sub-blocks; other bytes of the file may follow.
    explicit GifCodeReader(std::span<const std::uint8_t> blocks)
        : cursor_(blocks.data()), blockEnd_(blocks.data()), fileEnd_(blocks.data() + blocks.size()) {}

    // Returns the next code of `width` bits, 1 to 12.
    std::uint32_t read(unsigned width) {
        if (bitCount_ < width && !refill(width)) return kNoCode;
        const auto code = static_cast<std::uint32_t>(bits_) & ((1u << width) - 1);
        bits_ >>= width;
        bitCount_ -= width;
        return code;
    }

private:
    // Takes in as many bytes as fit. Returns false when the file holds fewer than `wanted` more bits.
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

    // Takes eight bytes at once. Those that do not fit are not counted; the next refill puts them onto the same bits.
    void takeEight() {
        std::uint64_t bytes = 0;
        for (unsigned i = 0; i < 8; ++i) bytes |= std::uint64_t{cursor_[i]} << 8 * i;
        bits_ |= bytes << bitCount_;
        const unsigned taken = (63 - bitCount_) / 8;
        cursor_ += taken;
        bitCount_ += taken * 8;
    }

    // Steps over a length byte. Of a block that the file cuts short it takes what is there. False: no more bytes.
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

}  // namespace

LzwExpander::LzwExpander(unsigned minCodeSize, std::span<const std::uint8_t> palette, std::span<std::uint8_t> out)
    : clear_(1u << minCodeSize),
      end_(clear_ + 1),
      colourCount_(static_cast<std::uint32_t>(palette.size() / kPixel)),
      firstWidth_(minCodeSize + 1),
      out_(out),
      entries_(kTableSize) {
    std::copy(palette.begin(), palette.end(), palette_.begin());
    for (std::uint32_t colour = 0; colour < colourCount_; ++colour) {
        entries_[colour].run = {palette_.data() + colour * kPixel, 1, static_cast<std::uint8_t>(colour)};
    }
}

LzwEnd LzwExpander::run(std::span<const std::uint8_t> blocks) {
    GifCodeReader codes(blocks);
    forgetStrings();
    while (room() >= kPixel) {
        const std::uint32_t code = codes.read(width_);
        if (code == GifCodeReader::kNoCode) return LzwEnd::DataRanOut;
        if (code == end_) return LzwEnd::EndCode;
        if (code == clear_) {
            forgetStrings();
        } else if (fresh_) {
            putFirst(code);
        } else if (!put(code)) {
            return LzwEnd::Damaged;
        }
    }
    return LzwEnd::PictureFull;
}

void LzwExpander::forgetStrings() {
    width_ = firstWidth_;
    limit_ = 1u << firstWidth_;
    next_ = clear_ + 2;
    fresh_ = true;
}

void LzwExpander::putFirst(std::uint32_t code) {
    fresh_ = false;
    first_ = static_cast<std::uint8_t>(code & (colourCount_ - 1));
    previous_ = code;
    const bool isColour = code < colourCount_;
    previousRun_ = {out_.data() + filled_, isColour ? 1u : 0u, first_};
    putColour(first_);
}

// Writes the string of a code and learns a new one. Returns false when the walk through the tables does not end.
bool LzwExpander::put(std::uint32_t code) {
    Run written{out_.data() + filled_, 0, 0};
    if (code < next_ && entries_[code].run.length != 0) {
        const Run& run = entries_[code].run;
        written.length = run.length;
        written.first = run.first;
        putCopy(run);
    } else if (code >= next_ && previousRun_.length != 0) {
        written.length = previousRun_.length + 1;
        written.first = previousRun_.first;
        putCopy(previousRun_);
        putColour(first_);
    } else {
        if (!putByWalking(code)) return false;
        written.first = first_;
    }
    first_ = written.first;
    learn(code, written);
    return true;
}

// Copies as much as fits. Where there is room a piece may write beyond the run: later pixels overwrite those bytes.
void LzwExpander::putCopy(const Run& run) {
    std::uint8_t* const to = out_.data() + filled_;
    const std::size_t size = run.length * kPixel;
    if (room() < size + kPiece) {
        const std::size_t fitting = std::min(size, room());
        std::memcpy(to, run.at, fitting);
        filled_ += fitting;
        return;
    }
    for (std::size_t done = 0; done < size; done += kPiece) {
        std::array<std::uint8_t, kPiece> piece;
        std::memcpy(piece.data(), run.at + done, kPiece);
        std::memcpy(to + done, piece.data(), kPiece);
    }
    filled_ += size;
}

// Collects the string from its last colour to its first, then writes it in order. Stray codes can tie the prefixes
// into a ring, so the walk has a limit.
bool LzwExpander::putByWalking(std::uint32_t code) {
    std::array<std::uint8_t, kTableSize + 1> stack;
    std::size_t height = 0;
    if (code >= next_) {
        stack[height++] = first_;
        code = previous_;
    }
    while (code >= colourCount_) {
        if (height == kTableSize) return false;
        stack[height++] = entries_[code].suffix;
        code = entries_[code].prefix;
    }
    first_ = static_cast<std::uint8_t>(code);
    putColour(first_);
    while (height > 0) putColour(stack[--height]);
    return true;
}

// The new string is the previous one and the first colour of the one just written. Where the two stand side by side in
// the output, so does the new string.
void LzwExpander::learn(std::uint32_t code, Run written) {
    if (next_ < limit_) {
        Entry& entry = entries_[next_];
        entry.prefix = static_cast<std::uint16_t>(previous_);
        entry.suffix = written.first;
        const bool sideBySide =
            previousRun_.length != 0 && previousRun_.at + previousRun_.length * kPixel == written.at;
        if (next_ >= colourCount_) {  // a colour keeps its place
            entry.run.at = previousRun_.at;
            entry.run.length = sideBySide ? previousRun_.length + 1 : 0;
            entry.run.first = previousRun_.first;
        }
        // A code that was not known stands for the pixels just written only when it is the code of the new string.
        const bool isNewString = code == next_ && code >= colourCount_ && sideBySide;
        if (code >= next_ && !isNewString) written.length = 0;
        previous_ = code;
        previousRun_.at = written.at;
        previousRun_.length = written.length;
        previousRun_.first = written.first;
        ++next_;
    }
    if (next_ >= limit_ && width_ < 12) {
        ++width_;
        limit_ *= 2;
    }
}

}  // namespace grub
