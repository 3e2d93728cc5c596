#include "frame_counts.h"

#include "image_decoder.h"
#include "loading_list.h"

namespace grub {

AnimationFrameCounts frameCountsOf(ResourceSource& pictures) {
    AnimationFrameCounts counts;
    for (const LoadEntry& entry : loadingList()) {
        const EngineString file(entry.path().c_str());
        if (!pictures.exists(file)) continue;
        const auto picture = createImageDecoder(pictures.load(file));
        const int height = picture == nullptr ? 0 : picture->height();
        counts.set(entry.id, height / (entry.kind == LoadEntry::Kind::Block ? kCellSize : entry.frameHeight));
    }
    return counts;
}

std::optional<AnimationFrameCounts> readFrameCounts(std::string_view text, TextError& error) {
    auto counts = AnimationFrameCounts::all(kUsualFrames);
    for (const TextLine& line : textLines(text)) {
        WordReader words(line);
        const int id = words.number("an animation from 0 to 399", 0, kAnimationIds - 1);
        const auto count = words.number<std::uint16_t>("a frame count from 0 to 65535");
        words.finish();
        if (!words.ok()) {
            error = words.error();
            return std::nullopt;
        }
        counts.set(id, count);
    }
    return counts;
}

}  // namespace grub
