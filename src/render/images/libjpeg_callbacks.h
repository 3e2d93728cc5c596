#pragma once

#include <csetjmp>
#include <cstdint>
#include <cstdio>
#include <span>

#include <jpeglib.h>

namespace grub {

/// How an operation on a JPEG ended. Fatal: libjpeg's own handler would end the process here.
enum class JpegOutcome { Done = 0, Refused, Fatal };

/// libjpeg's standard error manager, except that a fatal error leaves libjpeg by a jump to `escape`. The jump's value
/// is a `JpegOutcome`, and `message` holds the reason. No object with a destructor may live between the jump's ends.
class JpegErrors : public jpeg_error_mgr {
public:
    JpegErrors();
    JpegErrors(const JpegErrors&) = delete;
    JpegErrors& operator=(const JpegErrors&) = delete;

    /// Sends the errors of `info` here and refuses files that ask for too many passes.
    void attachTo(jpeg_decompress_struct& info);

    /// Where the jump leads: `setjmp` sets it before each operation of libjpeg.
    std::jmp_buf escape{};
    /// Why the last operation failed.
    char message[JMSG_LENGTH_MAX] = {};

private:
    jpeg_progress_mgr progress_{};
};

/// Feeds a file in memory to libjpeg in pieces of at most 128 KiB. All sources of the process share one staging buffer,
/// so only one of them may be inside libjpeg at a time.
class JpegSource : public jpeg_source_mgr {
public:
    /// `file` must outlive this object.
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
