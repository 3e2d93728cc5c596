#pragma once

#include <bit>
#include <cstdint>
#include <map>
#include <utility>

#include "bytes.h"

namespace grub {

/// Packs LZW codes, lowest bit first. The codes grow wider exactly when a decoder expects it.
class GifCodePacker {
public:
    explicit GifCodePacker(unsigned minCodeSize) : minCodeSize_(minCodeSize) { forget(); }

    /// Appends a code; the clear code takes effect.
    void put(std::uint32_t code) {
        bits_ |= std::uint64_t{code} << bitCount_;
        bitCount_ += width_;
        for (; bitCount_ >= 8; bitCount_ -= 8, bits_ >>= 8) packed_.push_back(static_cast<std::uint8_t>(bits_));
        if (code == clear()) return forget();
        if (std::exchange(fresh_, false)) return;
        if (next_ < 1u << width_) ++next_;
        if (next_ >= 1u << width_ && width_ < 12) ++width_;
    }
    [[nodiscard]] std::uint32_t clear() const { return 1u << minCodeSize_; }
    [[nodiscard]] std::uint32_t end() const { return clear() + 1; }
    /// Everything so far, the last byte filled up with zero bits.
    [[nodiscard]] Bytes packed() const {
        Bytes bytes = packed_;
        if (bitCount_ > 0) bytes.push_back(static_cast<std::uint8_t>(bits_));
        return bytes;
    }

private:
    void forget() {
        width_ = minCodeSize_ + 1;
        next_ = clear() + 2;
        fresh_ = true;
    }

    unsigned minCodeSize_;
    Bytes packed_;
    std::uint64_t bits_ = 0;
    unsigned bitCount_ = 0;
    unsigned width_ = 0;
    std::uint32_t next_ = 0;
    bool fresh_ = true;
};

/// The properties of a GIF file that tests vary. The image data are sub-blocks' content, as `GifCodePacker` and `lzwOf`
/// make it.
struct GifParts {
    unsigned width = 0;
    unsigned height = 0;
    unsigned minCodeSize = 0;
    Bytes data{};
    Bytes globalTable{};  ///< R, G, B of 2, 4, 8 ... 256 colours, or nothing
    Bytes localTable{};
    Bytes extensions{};        ///< blocks between the global table and the image
    unsigned blockSize = 255;  ///< bytes in each sub-block
    unsigned imageHeight = 0;  ///< 0: as the screen
    bool interlaced = false;
};

/// The flag bits that announce a colour table; 0 without a table.
[[nodiscard]] inline std::uint8_t gifTableFlags(const Bytes& table) {
    return static_cast<std::uint8_t>(table.empty() ? 0 : 0x80 | (std::bit_width(table.size() / 3) - 2));
}

/// The image data as sub-blocks of at most `blockSize` bytes and the empty one that ends them.
[[nodiscard]] inline Bytes inSubBlocks(std::span<const std::uint8_t> data, std::size_t blockSize) {
    Bytes blocks;
    for (std::size_t at = 0; at < data.size(); at += blockSize) {
        const auto block = data.subspan(at, std::min(blockSize, data.size() - at));
        blocks.push_back(static_cast<std::uint8_t>(block.size()));
        blocks.insert(blocks.end(), block.begin(), block.end());
    }
    blocks.push_back(0);
    return blocks;
}

/// The file of these parts, with trailer.
[[nodiscard]] inline Bytes gifFile(const GifParts& parts) {
    Bytes file{'G', 'I', 'F', '8', '9', 'a'};
    const auto appendAll = [&file](const Bytes& bytes) { file.insert(file.end(), bytes.begin(), bytes.end()); };
    // Background colour and aspect ratio end the line.
    append(file, {{parts.width, 2}, {parts.height, 2}, {gifTableFlags(parts.globalTable), 1}, {0, 2}});
    appendAll(parts.globalTable);
    appendAll(parts.extensions);
    const unsigned imageHeight = parts.imageHeight != 0 ? parts.imageHeight : parts.height;
    append(file, {{0x2C, 1}, {0, 4}, {parts.width, 2}, {imageHeight, 2}});  // the zeros are left and top
    append(file, gifTableFlags(parts.localTable) | (parts.interlaced ? 0x40u : 0u), 1);
    appendAll(parts.localTable);
    append(file, parts.minCodeSize, 1);
    appendAll(inSubBlocks(parts.data, parts.blockSize));
    file.push_back(0x3B);  // trailer
    return file;
}

/// The codes of `indices`, as a usual encoder writes them: a clear code, then the longest strings that are known. With
/// `clearWhenFull` the 4096 strings are forgotten when they are complete, else they stay in use to the end.
[[nodiscard]] inline Bytes lzwOf(const Bytes& indices, unsigned minCodeSize, bool clearWhenFull) {
    GifCodePacker packer(minCodeSize);
    std::map<std::pair<std::uint32_t, std::uint8_t>, std::uint32_t> strings;
    packer.put(packer.clear());
    std::uint32_t current = indices.at(0);
    for (std::size_t i = 1; i < indices.size(); ++i) {
        const auto found = strings.find({current, indices[i]});
        if (found != strings.end()) {
            current = found->second;
            continue;
        }
        packer.put(current);
        const auto next = static_cast<std::uint32_t>(packer.clear() + 2 + strings.size());
        if (next < 4096) strings[{current, indices[i]}] = next;
        if (next == 4095 && clearWhenFull) {
            packer.put(packer.clear());
            strings.clear();
        }
        current = indices[i];
    }
    packer.put(current);
    packer.put(packer.end());
    return packer.packed();
}

/// A good GIF of `indices` into `table`, with as many code bits as the table has colours (at least 2).
[[nodiscard]] inline Bytes writeGif(unsigned width, unsigned height, const Bytes& indices, const Bytes& table) {
    const auto minCodeSize = std::max(2u, static_cast<unsigned>(std::bit_width(table.size() / 3 - 1)));
    return gifFile({.width = width,
                    .height = height,
                    .minCodeSize = minCodeSize,
                    .data = lzwOf(indices, minCodeSize, true),
                    .globalTable = table});
}

/// R, G, B of every index: what a decoder should give.
[[nodiscard]] inline Bytes coloured(const Bytes& indices, const Bytes& table) {
    Bytes rgb;
    rgb.reserve(indices.size() * 3);
    for (const std::size_t index : indices)
        rgb.insert(rgb.end(), {table.at(index * 3), table.at(index * 3 + 1), table.at(index * 3 + 2)});
    return rgb;
}

}  // namespace grub
