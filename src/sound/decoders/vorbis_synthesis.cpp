#include "vorbis_synthesis.h"

namespace grub {

VorbisSynthesis::VorbisSynthesis() {
    vorbis_info_init(&info_);
    vorbis_comment_init(&comment_);
}

VorbisSynthesis::~VorbisSynthesis() {
    vorbis_block_clear(&block_);
    vorbis_dsp_clear(&dsp_);
    vorbis_comment_clear(&comment_);
    vorbis_info_clear(&info_);  // last: the others look into it
}

bool VorbisSynthesis::start() {
    return vorbis_synthesis_init(&dsp_, &info_) == 0 && vorbis_block_init(&dsp_, &block_) == 0;
}

bool VorbisSynthesis::decode(ogg_packet& packet) {
    return vorbis_synthesis(&block_, &packet) == 0 && vorbis_synthesis_blockin(&dsp_, &block_) == 0;
}

}  // namespace grub
