#include "jpeg_decoder.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <mutex>

namespace grub {

namespace {

// Guards the staging buffer from the first to the last call of a decompression. It is never destroyed, because a thread
// may still decode while the process ends.
std::mutex& libjpegTurn() {
    static std::mutex& turn = *new std::mutex;
    return turn;
}

// Not `exit`, which would destroy static objects under threads that still use them.
[[noreturn]] void endProcess(const char* message) {
    std::fprintf(stderr, "%s\n", message);
    std::fflush(nullptr);
    std::_Exit(EXIT_FAILURE);
}

}  // namespace

JpegDecoder::JpegDecoder(const SharedBuffer& source) : ImageDecoder(source), source_(file()) {
    const std::scoped_lock turn(libjpegTurn());
    if (readHeader() != JpegOutcome::Done) {
        refuse(std::string("JPEG: ") + errors_.message);
        return;
    }
    accept(static_cast<std::uint16_t>(info_.image_width), static_cast<std::uint16_t>(info_.image_height));
}

bool JpegDecoder::decode(SharedBuffer& rgbOut, SharedBuffer& alphaOut) {
    if (!isValid()) return false;
    const JpegOutcome outcome = decodeInto(rgbOut, alphaOut);
    if (outcome == JpegOutcome::Fatal) endProcess(errors_.message);
    return outcome == JpegOutcome::Done;
}

bool JpegDecoder::decodeOrRefuse(SharedBuffer& rgbOut, SharedBuffer& alphaOut) {
    return isValid() && decodeInto(rgbOut, alphaOut) == JpegOutcome::Done;
}

JpegOutcome JpegDecoder::decodeInto(SharedBuffer& rgbOut, SharedBuffer& alphaOut) {
    SharedBuffer rgb = createRgb();
    if (rgb.empty()) return JpegOutcome::Refused;
    const std::scoped_lock turn(libjpegTurn());
    const JpegOutcome outcome = decompress(rgb.writableData());
    if (outcome != JpegOutcome::Done) {
        refuse(std::string("JPEG: ") + errors_.message);
        return outcome;
    }
    rgbOut = rgb;
    alphaOut.release();
    return outcome;
}

// A fatal error of libjpeg jumps to one of the next two functions.

JpegOutcome JpegDecoder::readHeader() {
    if (const int outcome = setjmp(errors_.escape)) {
        jpeg_destroy_decompress(&info_);
        return static_cast<JpegOutcome>(outcome);
    }
    startReading();
    bool usable = jpeg_read_header(&info_, TRUE) == JPEG_HEADER_OK || explain("the file ends inside the header");
    if (usable && info_.num_components != 1 && info_.num_components != 3) {
        usable = explain("1 or 3 colour components wanted");
    }
    const std::uint64_t pixels = std::uint64_t{info_.image_width} * info_.image_height;
    if (usable && !isPlausibleSize(pixels, file().size(), kJpegPixelsPerByte)) {
        usable = explain("the file is too short for so many pixels");
    }
    jpeg_destroy_decompress(&info_);
    return usable ? JpegOutcome::Done : JpegOutcome::Refused;
}

JpegOutcome JpegDecoder::decompress(std::uint8_t* rgb) {
    if (const int outcome = setjmp(errors_.escape)) {
        jpeg_destroy_decompress(&info_);
        return static_cast<JpegOutcome>(outcome);
    }
    startReading();
    const bool done = decompressHere(rgb);
    jpeg_destroy_decompress(&info_);
    return done ? JpegOutcome::Done : JpegOutcome::Refused;
}

void JpegDecoder::startReading() {
    errors_.attachTo(info_);
    jpeg_create_decompress(&info_);
    errors_.attachTo(info_);  // creation forgets the scan counter
    source_.attachTo(info_);
}

bool JpegDecoder::decompressHere(std::uint8_t* rgb) {
    if (jpeg_read_header(&info_, TRUE) != JPEG_HEADER_OK) return explain("the file ends inside the header");
    if (info_.jpeg_color_space == JCS_GRAYSCALE) info_.out_color_space = JCS_RGB;
    if (jpeg_start_decompress(&info_) == FALSE) return explain("the file ends before the first row");
    if (info_.output_components != 3) return explain("no RGB output");
    while (info_.output_scanline < info_.output_height) {
        JSAMPROW row = rgb + std::size_t{rowBytes(1)} * info_.output_scanline;
        // At the file's end libjpeg gives 0 rows, again and again.
        if (jpeg_read_scanlines(&info_, &row, 1) == 0) return explain("the file ends before the last row");
    }
    jpeg_finish_decompress(&info_);
    return true;
}

// Keeps a reason of our own. Always returns false.
bool JpegDecoder::explain(const char* fault) {
    std::snprintf(errors_.message, sizeof errors_.message, "%s", fault);
    return false;
}

}  // namespace grub
