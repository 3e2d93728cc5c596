#include "wav_file.h"

#include <string_view>

namespace grub {

namespace {

constexpr std::uint32_t kHeaderSize = 44;
constexpr std::uint32_t kSampleSize = 2;
constexpr std::uint16_t kPcm = 1;

/// Puts little-endian fields one behind the other.
class HeaderWriter {
public:
    explicit HeaderWriter(std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}

    void text(std::string_view letters) {
        for (const char letter : letters) bytes_.push_back(static_cast<std::uint8_t>(letter));
    }
    void u16(std::uint32_t value) {
        bytes_.push_back(static_cast<std::uint8_t>(value));
        bytes_.push_back(static_cast<std::uint8_t>(value >> 8));
    }
    void u32(std::uint32_t value) {
        u16(value & 0xFFFF);
        u16(value >> 16);
    }

private:
    std::vector<std::uint8_t>& bytes_;
};

}  // namespace

std::vector<std::uint8_t> wavBytes(std::span<const double> sound, int rate) {
    std::vector<std::int16_t> samples;
    samples.reserve(sound.size());
    for (const double sample : sound)
        samples.push_back(static_cast<std::int16_t>(std::lround(std::clamp(sample, -1.0, 1.0) * 32767)));
    return wavBytes(samples, 1, rate);
}

std::vector<std::uint8_t> wavBytes(std::span<const std::int16_t> samples, int channels, int rate) {
    std::vector<std::uint8_t> bytes;
    const auto dataSize = static_cast<std::uint32_t>(samples.size()) * kSampleSize;
    const auto samplesPerSecond = static_cast<std::uint32_t>(rate);
    const auto blockSize = static_cast<std::uint32_t>(channels) * kSampleSize;
    HeaderWriter out(bytes);
    out.text("RIFF");
    out.u32(kHeaderSize - 8 + dataSize);
    out.text("WAVEfmt ");
    out.u32(16);
    out.u16(kPcm);
    out.u16(static_cast<std::uint32_t>(channels));
    out.u32(samplesPerSecond);
    out.u32(samplesPerSecond * blockSize);
    out.u16(blockSize);
    out.u16(8 * kSampleSize);
    out.text("data");
    out.u32(dataSize);
    for (const std::int16_t sample : samples) out.u16(static_cast<std::uint16_t>(sample));
    return bytes;
}

}  // namespace grub
