#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include <dsound.h>

namespace platform {

/// How the samples of a buffer are stored.
struct SampleFormat {
    DWORD rate;     // frames a second
    WORD channels;  // 1 or 2
    WORD bits;      // 8, unsigned, or 16, signed

    /// Bytes of one sample for each channel.
    [[nodiscard]] std::size_t frameBytes() const { return std::size_t{channels} * bits / 8; }
};

/// The format that a caller describes; nothing when it cannot be played or contradicts itself.
[[nodiscard]] std::optional<SampleFormat> readFormat(const WAVEFORMATEX& wave);

/// The samples of a buffer and of its duplicates. The mixer's lock guards them.
class SampleMemory {
public:
    /// Silence; at least one frame.
    SampleMemory(const SampleFormat& format, std::size_t bytes);

    /// How the bytes are to be read; it never changes.
    [[nodiscard]] const SampleFormat& format() const { return format_; }
    /// Whole frames; bytes behind the last one are stored and never heard.
    [[nodiscard]] std::size_t frames() const { return frames_; }
    [[nodiscard]] std::span<BYTE> bytes() { return bytes_; }

    /// One channel of frames from `first` on as numbers from -1 to 1; silence while the memory is lost.
    void read(std::size_t first, std::size_t channel, std::span<float> samples) const;

    /// Forgets what it holds until `restore`, which leaves silence.
    void lose();
    void restore() { lost_ = false; }
    [[nodiscard]] bool lost() const { return lost_; }

private:
    SampleFormat format_;
    std::size_t frames_;
    std::vector<BYTE> bytes_;
    bool lost_ = false;
};

}  // namespace platform
