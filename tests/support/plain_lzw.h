#pragma once

#include <array>

#include "bytes.h"
#include "gif_lzw.h"

namespace grub {

/// What the expansion of a GIF image should give: colour indices, at most `room` of them, and why it stopped.
struct PlainPixels {
    Bytes indices;
    LzwEnd end;
};

/// Expands LZW data the plain way, with a prefix table, a suffix table and a stack, one bit at a time: slow, and
/// simple enough to be trusted. `packed` is the data without sub-blocks; `colourCount` is a power of two.
[[nodiscard]] inline PlainPixels expandPlainly(const Bytes& packed, unsigned minCodeSize, unsigned colourCount,
                                               std::size_t room) {
    const unsigned clear = 1u << minCodeSize;
    std::array<unsigned, 4096> prefix{};
    std::array<unsigned, 4096> suffix{};
    Bytes indices;
    unsigned width = 0, next = 0, previous = 0, first = 0;
    bool fresh = true;
    const auto forget = [&] {
        width = minCodeSize + 1;
        next = clear + 2;
        fresh = true;
    };
    forget();
    for (std::size_t bit = 0; indices.size() < room;) {
        if (bit + width > packed.size() * 8) return {indices, LzwEnd::DataRanOut};
        unsigned code = 0;
        for (unsigned i = 0; i < width; ++i, ++bit) code |= (packed[bit / 8] >> bit % 8 & 1u) << i;
        if (code == clear + 1) return {indices, LzwEnd::EndCode};
        if (code == clear) {
            forget();
            continue;
        }
        if (fresh) {
            fresh = false;
            previous = code;
            first = code & (colourCount - 1);
            indices.push_back(static_cast<std::uint8_t>(first));
            continue;
        }
        Bytes stack;
        unsigned k = code;
        if (k >= next) {
            stack.push_back(static_cast<std::uint8_t>(first));
            k = previous;
        }
        while (k > colourCount - 1) {
            if (stack.size() == 4096) return {indices, LzwEnd::Damaged};
            stack.push_back(static_cast<std::uint8_t>(suffix[k]));
            k = prefix[k];
        }
        first = k;
        stack.push_back(static_cast<std::uint8_t>(k));
        indices.insert(indices.end(), stack.rbegin(), stack.rend());
        if (next < 1u << width) {
            prefix[next] = previous;
            suffix[next++] = first;
            previous = code;
        }
        if (next >= 1u << width && width < 12) ++width;
    }
    indices.resize(room);
    return {indices, LzwEnd::PictureFull};
}

}  // namespace grub
