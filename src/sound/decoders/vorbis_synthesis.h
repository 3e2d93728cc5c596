#pragma once

#include <vorbis/codec.h>

namespace grub {

/// What libvorbis keeps of one stream, from its first header on.
class VorbisSynthesis {
public:
    VorbisSynthesis();
    VorbisSynthesis(const VorbisSynthesis&) = delete;
    VorbisSynthesis& operator=(const VorbisSynthesis&) = delete;
    ~VorbisSynthesis();

    /// Takes in one of the three headers, in order. False when it is not the one that is due.
    bool takeHeader(ogg_packet& packet) { return vorbis_synthesis_headerin(&info_, &comment_, &packet) == 0; }
    /// Prepares for sound, when all three headers are in. False without memory.
    bool start();
    /// Decodes a packet behind the headers. False when it holds no sound.
    bool decode(ogg_packet& packet);

    /// Samples of each channel that are decoded and not yet taken; `samples` points at an array of channels.
    [[nodiscard]] int ready(float**& samples) { return vorbis_synthesis_pcmout(&dsp_, &samples); }
    /// Takes that many samples of each channel.
    void take(int count) { vorbis_synthesis_read(&dsp_, count); }

    /// Channels and samples per second, as the first header has them; 0 before it.
    [[nodiscard]] int channels() const { return info_.channels; }
    [[nodiscard]] long rate() const { return info_.rate; }

private:
    vorbis_info info_{};
    vorbis_comment comment_{};
    vorbis_dsp_state dsp_{};  // these two own memory only after `start`
    vorbis_block block_{};
};

}  // namespace grub
