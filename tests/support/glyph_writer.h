#pragma once

#include <cstdint>
#include <vector>

#include "bytes.h"

namespace grub {

/// A record of a glyph table: spaces before and behind the glyph and its width between them, and its place in the
/// image.
struct GlyphRecord {
    std::int32_t a;
    std::int32_t b;
    std::int32_t c;
    std::uint32_t x = 0;
    std::uint32_t y = 0;
};

/// A glyph table, good or bad: nothing holds `records` to the codes `first` to `last`.
[[nodiscard]] inline Bytes writeGlyphTable(int first, int last, std::uint32_t height,
                                           const std::vector<GlyphRecord>& records) {
    Bytes table{static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(last)};
    append(table, height, 4);
    for (const GlyphRecord& record : records) {
        for (const std::int32_t width : {record.a, record.b, record.c})
            append(table, static_cast<std::uint32_t>(width), 4);
        append(table, {{record.x, 4}, {record.y, 4}});
    }
    return table;
}

}  // namespace grub
