#pragma once

#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace grub {

/// What became of an operation on a JPEG. Fatal is what libjpeg calls so: its own handler would end the process.
enum class JpegOutcome { Done = 0, Refused, Fatal };

/// libjpeg's standard error manager, but a fatal error leaves libjpeg by a jump to `escape`, with a `JpegOutcome` as
/// its value and the reason in `message`. No object with a destructor may live between the jump's two ends.
class JpegErrors : public jpeg_error_mgr {
public:
    JpegErrors();
    JpegErrors(const JpegErrors&) = delete;
    JpegErrors& operator=(const JpegErrors&) = delete;

    /// Routes the errors of `info` here and lets it give up on files that ask for too many passes.
    void attachTo(jpeg_decompress_struct& info);

    /// Where the jump leads: set by `setjmp` before libjpeg is called.
    std::jmp_buf escape{};
    /// Why the last operation was not done.
    char message[JMSG_LENGTH_MAX] = {};

private:
    jpeg_progress_mgr progress_{};
};

}  // namespace grub
