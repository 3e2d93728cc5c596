#pragma once

#include <cstdint>

#include "frame_strip.h"
#include "resource_source.h"

namespace grub {

/// The effects that cover a change of screens: horizontal stripes that open from the middle or close to it, or one run
/// of an animation on a field of tiles.
enum class TransitionMode : std::uint8_t {
    ShutterOpen = 0,
    ShutterClose = 1,
    TileIn = 2,
    TileOut = 3,
};

/// A full-screen effect. A scene starts it, and then draws its own content and calls `step` once a game frame until the
/// effect is finished. Draws with the renderer of `EngineServices`. Game thread only.
class ScreenTransition {
public:
    /// Loads the pictures that `source` has and makes their textures. A missing picture shows nothing, and its effects
    /// still come to their end.
    explicit ScreenTransition(ResourceSource& source);

    /// Starts the effect from its beginning.
    void start(TransitionMode mode);
    /// Draws one game frame of the effect. A shutter takes 14 steps to finish, a tile effect one for each frame of its
    /// animation.
    void step();
    /// Whether the effect that was started last has come to its end.
    [[nodiscard]] bool isFinished() const { return finished_; }

private:
    void openShutter();
    void closeShutter();
    void drawStripePair(std::uint32_t pair);
    void stepTiles(FrameStrip& tiles);

    Picture stripe_;
    FrameStrip openTiles_;
    FrameStrip closeTiles_;
    TransitionMode mode_ = TransitionMode::ShutterOpen;
    std::uint32_t stepCount_ = 0;  // steps since `start`
    bool finished_ = false;
};

}  // namespace grub
