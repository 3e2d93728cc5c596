#pragma once

#include <cstdint>
#include <cstdio>
#include <span>

#include <jpeglib.h>

namespace grub {

/// Feeds a file in memory to libjpeg in pieces of at most 128 KiB, through one staging buffer that all sources of the
/// process share: only one of them may be inside libjpeg at a time.
class JpegSource : public jpeg_source_mgr {
public:
    /// The file's bytes must outlive this.
    explicit JpegSource(std::span<const std::uint8_t> file);
    JpegSource(const JpegSource&) = delete;
    JpegSource& operator=(const JpegSource&) = delete;

    /// Makes libjpeg read from the file's start.
    void attachTo(jpeg_decompress_struct& info);

private:
    static boolean fill(j_decompress_ptr info);
    static void skip(j_decompress_ptr info, long count);

    const std::span<const std::uint8_t> file_;
    std::span<const std::uint8_t> rest_;  // not yet staged
};

}  // namespace grub
