#pragma once

#include <cstdint>

#include "bytes.h"

namespace grub {

/// Offsets of the fields of a BMP file, for tests that damage one.
inline constexpr std::size_t kBmpPixelOffset = 10;
inline constexpr std::size_t kBmpWidth = 18;
inline constexpr std::size_t kBmpHeight = 22;
inline constexpr std::size_t kBmpBitCount = 28;
inline constexpr std::size_t kBmpCompression = 30;
inline constexpr std::size_t kBmpHeaders = 54;

/// A BMP file with this header and these stored rows (bottom-up, B first, padded), good or bad.
[[nodiscard]] inline Bytes bmpFile(std::uint32_t width, std::uint32_t height, unsigned bitCount, const Bytes& rows) {
    Bytes file{'B', 'M'};
    append(file, {{kBmpHeaders + rows.size(), 4}, {0, 4}, {kBmpHeaders, 4}});
    // Size of the information header, width, height, planes, bits, compression; image size, resolution, colours.
    append(file, {{40, 4}, {width, 4}, {height, 4}, {1, 2}, {bitCount, 2}, {0, 4}});
    file.resize(kBmpHeaders);
    file.insert(file.end(), rows.begin(), rows.end());
    return file;
}

/// A good BMP of 24 bits, or of 32 when `alpha` is not empty, from top-down R, G, B and alpha bytes.
[[nodiscard]] inline Bytes writeBmp(unsigned width, unsigned height, const Bytes& rgb, const Bytes& alpha = {}) {
    Bytes rows;
    for (unsigned y = height; y-- > 0;) {
        for (unsigned x = 0; x < width; ++x) {
            const std::size_t pixel = std::size_t{y} * width + x;
            rows.insert(rows.end(), {rgb[pixel * 3 + 2], rgb[pixel * 3 + 1], rgb[pixel * 3]});
            if (!alpha.empty()) rows.push_back(alpha[pixel]);
        }
        while (rows.size() % 4 != 0) rows.push_back(0);
    }
    return bmpFile(width, height, alpha.empty() ? 24 : 32, rows);
}

}  // namespace grub
