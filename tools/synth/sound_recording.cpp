#include "sound_recording.h"

#include "sound_decoder.h"

namespace grub {

namespace {

constexpr std::uint32_t kReadSize = 65536;
constexpr double kFullScale = 32768;

/// Appends interleaved 16-bit samples.
void appendPcm(std::span<const std::uint8_t> pcm, std::vector<Samples>& channels) {
    const std::size_t frame = 2 * channels.size();
    for (std::size_t i = 0; i < pcm.size() / frame * channels.size(); ++i) {
        const auto sample = static_cast<std::int16_t>(pcm[2 * i] | pcm[2 * i + 1] << 8);
        channels[i % channels.size()].push_back(sample / kFullScale);
    }
}

}  // namespace

std::optional<SoundRecording> decodeSound(std::span<const std::uint8_t> file) {
    const auto decoder = createSoundDecoder(SharedBuffer::view(file.data(), static_cast<std::uint32_t>(file.size())));
    if (!decoder || !decoder->rewind() || decoder->bitsPerSample() != 16 || decoder->channels() == 0)
        return std::nullopt;
    SoundRecording recording{static_cast<int>(decoder->sampleRate()),
                             std::vector<Samples>(std::min<std::size_t>(decoder->channels(), 2))};
    for (;;) {
        SharedBuffer buffer = SharedBuffer::create(kReadSize);
        const std::uint32_t size = decoder->read(buffer);
        if (size == 0) break;
        appendPcm(buffer.bytes().first(size), recording.channels);
    }
    if (recording.rate <= 0 || recording.channels[0].empty()) return std::nullopt;
    return recording;
}

}  // namespace grub
