#include "gif_lzw.h"

#include <algorithm>
#include <cstring>

namespace grub {

namespace {

constexpr std::size_t kPixel = 3;  // bytes

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

// Puts the string of a code and learns a new one. False when the walk through the tables does not end.
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

// Copies what fits; a piece may reach beyond the run where there is room, since what it spoils there comes later.
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
        const bool sideBySide =
            previousRun_.length != 0 && previousRun_.at + previousRun_.length * kPixel == written.at;
        if (next_ >= colourCount_) {  // a colour keeps its place
            entry.run.at = previousRun_.at;
            entry.run.length = sideBySide ? previousRun_.length + 1 : 0;
            entry.run.first = previousRun_.first;
        }
        // A code that was not yet known means what was put for it only when it is that of the new string.
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
