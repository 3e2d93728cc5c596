#pragma once

#include <cstdint>

#include "engine_timer.h"
#include "rules.h"

namespace grub {

/// When the level scene draws and presents: one game frame each 40 ms. What is drawn at one tick is presented at the
/// next, and a slow pass is not caught up. Game thread only.
class FramePacer {
public:
    FramePacer() = default;
    FramePacer(const FramePacer&) = delete;
    FramePacer& operator=(const FramePacer&) = delete;
    ~FramePacer() = default;

    /// From now on a game frame is due each 40 ms, the first one at once.
    void start();
    void stop() { timer_.stop(); }

    /// Looks at the clock; once in each pass of the frame loop.
    void tick() { timer_.tick(); }
    /// Begins a frame on the renderer when the last one has been presented. False: it is not time to draw.
    bool beginFrame();
    /// Presents the open frame when 40 ms have passed since the last one.
    void presentIfDue();
    /// Presents the open frame, if there is one, whatever the clock says.
    void present();
    /// How long there is nothing to do but to answer messages; 0 when a frame can be drawn.
    [[nodiscard]] std::uint32_t millisecondsToSleep() const;

private:
    Timer timer_{kGameFrameMs};
    bool tick_ = false;       // 40 ms have passed
    bool canDraw_ = false;    // the last frame has been presented
    bool frameOpen_ = false;  // between beginFrame and endFrame of the renderer
};

}  // namespace grub
