#pragma once

#include <optional>

#include "frame_strip.h"
#include "picture.h"
#include "renderer.h"
#include "resource_source.h"

namespace grub {

/// What the panel tells.
struct PanelNumbers {
    int level = 1;  ///< as the player counts, from 1
    int lives = 0;
    int keys = 0;   ///< not taken yet
    int score = 0;  ///< of 100,000 points or more the panel shows 99999
};

/// The board along the bottom edge of the screen, with its four numbers. Each ten levels have one of their own.
class Panel {
public:
    /// The pictures come from `data`, which outlives the panel.
    explicit Panel(ResourceSource& data) : data_(data) {}

    /// Takes the board of a level (0 to 49) into use.
    void acquire(int levelIndex);
    void release() { board_.reset(); }
    /// Draws the board and the numbers. `digits` has the digits 0 to 9 as its frames; without it the numbers are left
    /// out.
    void drawPanel(Renderer& renderer, const PanelNumbers& numbers, FrameStrip* digits) const;

private:
    ResourceSource& data_;
    std::optional<Picture> board_;  // between acquire and release
};

}  // namespace grub
