#include "dsound/sample_memory.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace platform {
namespace {

// The range of rates that a buffer may have, in frames a second.
constexpr DWORD kLowestRate = 100;
constexpr DWORD kHighestRate = 200'000;

BYTE silence(const SampleFormat& format) { return format.bits == 8 ? 0x80 : 0; }

float sampleAt(const BYTE* stored, std::uint8_t /*width*/) { return static_cast<float>(*stored - 0x80) / 0x80; }

float sampleAt(const BYTE* stored, std::int16_t /*width*/) {
    std::int16_t value = 0;
    std::memcpy(&value, stored, sizeof value);
    return static_cast<float>(value) / 0x8000;
}

template <class Stored>
void readSamples(const BYTE* first, std::size_t step, std::span<float> samples) {
    for (float& sample : samples) {
        sample = sampleAt(first, Stored{});
        first += step;
    }
}

}  // namespace

std::optional<SampleFormat> readFormat(const WAVEFORMATEX& wave) {
    const SampleFormat format{wave.nSamplesPerSec, wave.nChannels, wave.wBitsPerSample};
    const bool known = wave.wFormatTag == WAVE_FORMAT_PCM && (format.channels == 1 || format.channels == 2) &&
                       (format.bits == 8 || format.bits == 16) && wave.nBlockAlign == format.frameBytes();
    if (!known || format.rate < kLowestRate || format.rate > kHighestRate) return std::nullopt;
    return format;
}

SampleMemory::SampleMemory(const SampleFormat& format, std::size_t bytes)
    : format_(format), frames_(bytes / format.frameBytes()), bytes_(bytes, silence(format)) {}

void SampleMemory::read(std::size_t first, std::size_t channel, std::span<float> samples) const {
    if (lost_) {
        std::ranges::fill(samples, 0.0F);
        return;
    }
    const std::size_t step = format_.frameBytes();
    const BYTE* stored = bytes_.data() + first * step + channel * format_.bits / 8;
    if (format_.bits == 8) return readSamples<std::uint8_t>(stored, step, samples);
    readSamples<std::int16_t>(stored, step, samples);
}

void SampleMemory::lose() {
    lost_ = true;
    std::ranges::fill(bytes_, silence(format_));
}

}  // namespace platform
