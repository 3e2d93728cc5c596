#pragma once

#include <optional>

#include "level_state.h"

namespace grub {

/// How a dialog comes down into its place and goes up again. Counts in pixels and game frames.
class DialogSlide {
public:
    /// Puts the dialog above the screen; it comes down in 8 game frames.
    void open() {
        offset_ = kAbove;
        speedIn_ = kSpeed;
        speedOut_ = 0;
    }
    /// Sends the dialog up, 9 game frames from its place. `next` is the state that then follows; of several calls the
    /// last one counts.
    void close(LevelState next) {
        next_ = next;
        speedIn_ = 0;
        speedOut_ = -kSpeed;
    }
    /// One game frame. Returns the state that follows in the game frame in which the dialog has gone.
    std::optional<LevelState> step() {
        offset_ += speedIn_;
        if (offset_ > 0) offset_ = speedIn_ = 0;
        offset_ += speedOut_;
        if (speedOut_ == 0 || offset_ >= kAbove) return std::nullopt;
        speedOut_ = 0;
        return next_;
    }
    /// 0 in place, negative above it.
    [[nodiscard]] int offset() const { return offset_; }

private:
    static constexpr int kAbove = -400;
    static constexpr int kSpeed = 50;

    int offset_ = 0;
    int speedIn_ = 0;
    int speedOut_ = 0;
    LevelState next_ = LevelState::Playing;
};

}  // namespace grub
