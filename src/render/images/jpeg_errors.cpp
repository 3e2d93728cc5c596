#include "jpeg_errors.h"

namespace grub {

namespace {

// Passes over the whole picture that a progressive file may ask for; usual ones make about ten. A small file could ask
// for tens of thousands and keep the game busy for minutes.
constexpr int kMostScans = 100;

[[noreturn]] void jump(JpegErrors& errors, JpegOutcome outcome) {
    std::longjmp(errors.escape, static_cast<int>(outcome));
}

[[noreturn]] void exitFatally(j_common_ptr info) {
    auto& errors = static_cast<JpegErrors&>(*info->err);
    errors.format_message(info, errors.message);
    jump(errors, JpegOutcome::Fatal);
}

void countScans(j_common_ptr info) {
    if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number <= kMostScans) return;
    auto& errors = static_cast<JpegErrors&>(*info->err);
    std::snprintf(errors.message, sizeof errors.message, "more than %d scans", kMostScans);
    jump(errors, JpegOutcome::Refused);
}

}  // namespace

JpegErrors::JpegErrors() : jpeg_error_mgr{} {
    jpeg_std_error(this);
    error_exit = exitFatally;
    progress_.progress_monitor = countScans;
}

void JpegErrors::attachTo(jpeg_decompress_struct& info) {
    info.err = this;
    info.progress = &progress_;
}

}  // namespace grub
