#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace grub {

/// Why the expansion of an image stopped.
enum class LzwEnd { EndCode, PictureFull, DataRanOut, Damaged };

/// Expands the LZW data of one GIF image into RGB bytes. The result is that of a decoder with plain prefix and suffix
/// tables, also for codes that a good encoder never writes:
/// - a known code is a colour when it is below the number of colours, and not when it is below the clear code;
/// - the first code, and the first after a clear code, counts modulo the number of colours and adds no string;
/// - a code beyond the known strings stands for the string that is just being made, whatever its number.
/// Most strings stand in the output already, from the time when they were learnt, and are copied from there, as a
/// colour is copied from the palette. Only where that is not sure does the expander walk a string through the tables.
class LzwExpander {
public:
    /// `minCodeSize` is 1 to 11 bits; `palette` holds R, G, B of 2, 4, 8 ... 256 colours.
    LzwExpander(unsigned minCodeSize, std::span<const std::uint8_t> palette, std::span<std::uint8_t> out);

    /// Reads the data sub-blocks (other bytes may follow them) until one of the ends; call it once.
    LzwEnd run(std::span<const std::uint8_t> blocks);
    /// Bytes of the output written so far.
    [[nodiscard]] std::size_t filled() const { return filled_; }

private:
    static constexpr std::uint32_t kTableSize = 4096;

    // Bytes copied at once, so that short strings need no loop.
    static constexpr std::size_t kPiece = 16;

    // Pixels that stand together in the output, or a colour in the palette. Length 0: their place is not known.
    struct Run {
        const std::uint8_t* at = nullptr;
        std::uint32_t length = 0;  // pixels
        std::uint8_t first = 0;    // colour of the first one
    };
    // The string of a code: that of `prefix`, then the colour `suffix`.
    struct Entry {
        Run run;
        std::uint16_t prefix = 0;
        std::uint8_t suffix = 0;
    };

    [[nodiscard]] std::size_t room() const { return out_.size() - filled_; }
    void forgetStrings();
    void putFirst(std::uint32_t code);
    bool put(std::uint32_t code);
    void putCopy(const Run& run);
    void putColour(std::uint32_t colour) { putCopy(entries_[colour].run); }
    bool putByWalking(std::uint32_t code);
    void learn(std::uint32_t code, Run written);

    const std::uint32_t clear_;
    const std::uint32_t end_;
    const std::uint32_t colourCount_;
    const unsigned firstWidth_;
    std::array<std::uint8_t, std::size_t{256} * 3 + kPiece> palette_{};
    const std::span<std::uint8_t> out_;
    std::vector<Entry> entries_;  // zeroed once; a clear code leaves the old strings where stray codes may find them

    std::size_t filled_ = 0;
    unsigned width_ = 0;       // bits of the next code
    std::uint32_t limit_ = 0;  // the number of strings at which the width grows
    std::uint32_t next_ = 0;   // the code of the next string
    bool fresh_ = true;        // the next code is the first, or the first after a clear code
    std::uint32_t previous_ = 0;
    Run previousRun_;         // of `previous_`
    std::uint8_t first_ = 0;  // first colour of what was put last
};

}  // namespace grub
