#pragma once

#include <cstdint>

namespace grub {

/// Pixels that a picture may claim whatever its file holds (12 MiB of RGB), so that a cut file still shows what it has.
inline constexpr std::uint64_t kFreePixels = std::uint64_t{1} << 22;
/// Pixels that no compressed picture may exceed (192 MiB of RGB); far above the largest picture of the game.
inline constexpr std::uint64_t kMostPixels = std::uint64_t{1} << 26;

/// The most pixels that a byte of a GIF can give: a code of 12 bits stands for at most 4096 of them, and shorter codes
/// for fewer a bit.
inline constexpr std::uint64_t kGifPixelsPerByte = 4096 * 8 / 12 + 1;
/// The same for a JPEG: each block of 8 x 8 samples costs at least a bit, and a component sampled at half the
/// resolution covers twice as many pixels with it.
inline constexpr std::uint64_t kJpegPixelsPerByte = 1024;

/// Whether a file of that many bytes may claim a picture of that many pixels. A few bytes of header can claim
/// 65535 x 65535, so this is asked before any memory is taken.
constexpr bool isPlausibleSize(std::uint64_t pixels, std::uint64_t fileBytes, std::uint64_t pixelsPerByte) {
    return pixels <= kFreePixels || (pixels <= kMostPixels && pixels / pixelsPerByte <= fileBytes);
}

}  // namespace grub
