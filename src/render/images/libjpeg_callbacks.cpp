#include "libjpeg_callbacks.h"

#include <algorithm>
#include <array>

namespace grub {

namespace {

// A progressive file may ask for this many passes over the whole picture; usual files ask for about ten. A small file
// could ask for tens of thousands and keep the game busy for minutes.
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

std::array<JOCTET, 131072> staging;  // 128 KiB

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

JpegSource::JpegSource(std::span<const std::uint8_t> file) : jpeg_source_mgr{}, file_(file) {
    init_source = [](j_decompress_ptr info) { info->src->bytes_in_buffer = 0; };
    fill_input_buffer = fill;
    skip_input_data = skip;
    resync_to_restart = jpeg_resync_to_restart;
    term_source = [](j_decompress_ptr) {};
}

void JpegSource::attachTo(jpeg_decompress_struct& info) {
    rest_ = file_;
    info.src = this;
}

// Returns FALSE at the file's end: libjpeg then expects the rest later and answers "suspended" to its callers.
boolean JpegSource::fill(j_decompress_ptr info) {
    auto& self = static_cast<JpegSource&>(*info->src);
    const std::size_t count = std::min(self.rest_.size(), staging.size());
    if (count == 0) return FALSE;
    std::copy_n(self.rest_.begin(), count, staging.begin());
    self.rest_ = self.rest_.subspan(count);
    self.next_input_byte = staging.data();
    self.bytes_in_buffer = count;
    return TRUE;
}

void JpegSource::skip(j_decompress_ptr info, long count) {
    if (count <= 0) return;
    auto& self = static_cast<JpegSource&>(*info->src);
    const auto wanted = static_cast<std::size_t>(count);
    const std::size_t staged = std::min(wanted, self.bytes_in_buffer);
    self.next_input_byte += staged;
    self.bytes_in_buffer -= staged;
    self.rest_ = self.rest_.subspan(std::min(wanted - staged, self.rest_.size()));
}

}  // namespace grub
