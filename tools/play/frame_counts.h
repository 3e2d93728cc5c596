#pragma once

#include <optional>
#include <string_view>

#include "animation_frame_counts.h"
#include "resource_source.h"
#include "text_words.h"

namespace grub {

/// The frame counts that the game will have once it has loaded these pictures.
[[nodiscard]] AnimationFrameCounts frameCountsOf(ResourceSource& pictures);

/// Frames of an animation that a counts file does not name.
inline constexpr int kUsualFrames = 8;

/// Reads a counts file: lines `ID COUNT`. Nothing, and `error` filled, at the first line that is none.
[[nodiscard]] std::optional<AnimationFrameCounts> readFrameCounts(std::string_view text, TextError& error);

}  // namespace grub
