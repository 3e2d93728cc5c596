#include "gif_lzw.h"

#include <algorithm>
#include <cstring>

namespace grub {

namespace {

constexpr std::size_t kPixel = 3;    // bytes
constexpr std::size_t kStride = 16;  // bytes copied at once

// Copies `size` bytes to a place behind them, and up to kStride - 1 more.
void copyGenerously(std::uint8_t* to, const std::uint8_t* from, std::size_t size) {
    for (std::size_t done = 0; done < size; done += kStride) {
        std::array<std::uint8_t, kStride> piece;
        std::memcpy(piece.data(), from + done, kStride);
        std::memcpy(to + done, piece.data(), kStride);
    }
}

}  // namespace

LzwExpander::LzwExpander(unsigned minCodeSize, std::span<const std::uint8_t> palette, std::span<std::uint8_t> out)
    : clear_(1u << minCodeSize),
      end_(clear_ + 1),
      colourCount_(static_cast<std::uint32_t>(palette.size() / kPixel)),
      firstWidth_(minCodeSize + 1),
      palette_(palette),
      out_(out),
      entries_(kTableSize) {}

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
    previousRun_ = {static_cast<std::uint32_t>(filled_), static_cast<std::uint16_t>(isColour ? 1 : 0), first_};
    putColour(first_);
}

// Puts the string of a code and learns a new one. False when the walk through the tables does not end.
bool LzwExpander::put(std::uint32_t code) {
    Run written{static_cast<std::uint32_t>(filled_), 1, 0};
    if (code < colourCount_) {
        written.first = static_cast<std::uint8_t>(code);
        putColour(code);
    } else if (code < next_ && entries_[code].run.length != 0) {
        const Run& run = entries_[code].run;
        written.length = run.length;
        written.first = run.first;
        putCopy(run.start, run.length);
    } else if (code == next_ && previousRun_.length != 0) {
        written.length = static_cast<std::uint16_t>(previousRun_.length + 1);
        written.first = previousRun_.first;
        putCopy(previousRun_.start, previousRun_.length);
        putColour(first_);
    } else {
        if (!putByWalking(code)) return false;
        written.length = 0;
        written.first = first_;
    }
    first_ = written.first;
    learn(code, written);
    return true;
}

void LzwExpander::putColour(std::uint32_t colour) {
    if (room() < kPixel) return;
    std::memcpy(out_.data() + filled_, palette_.data() + colour * kPixel, kPixel);
    filled_ += kPixel;
}

void LzwExpander::putCopy(std::uint32_t start, std::size_t pixels) {
    const std::size_t size = std::min(pixels * kPixel, room());
    std::uint8_t* const to = out_.data() + filled_;
    const std::uint8_t* const from = out_.data() + start;
    if (room() - size >= kStride) {
        copyGenerously(to, from, size);
    } else {
        std::memcpy(to, from, size);
    }
    filled_ += size;
}

// Collects the string from its last colour to its first, then puts it in order. Stray codes may have tied the prefixes
// into a ring, so the walk is bounded.
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
        entry.run = previousRun_;
        const bool sideBySide = previousRun_.start + previousRun_.length * kPixel == written.start;
        entry.run.length =
            static_cast<std::uint16_t>(sideBySide && previousRun_.length != 0 ? previousRun_.length + 1 : 0);
        // A code that was not yet known at all is not the string that was put for it.
        if (code > next_ || (code == next_ && entry.run.length == 0)) written.length = 0;
        previous_ = code;
        previousRun_ = written;
        ++next_;
    }
    if (next_ >= limit_ && width_ < 12) {
        ++width_;
        limit_ *= 2;
    }
}

}  // namespace grub
