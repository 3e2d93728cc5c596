#include "frame_pacer.h"

#include <utility>

#include "engine_services.h"

namespace grub {

void FramePacer::start() {
    timer_.start(makeCallback([this] { tick_ = true; }));
    tick_ = true;
    canDraw_ = true;
}

bool FramePacer::beginFrame() {
    if (!std::exchange(canDraw_, false)) return false;
    frameOpen_ = EngineServices::renderer()->beginFrame();
    return true;
}

void FramePacer::presentIfDue() {
    if (tick_) present();
}

void FramePacer::present() {
    if (std::exchange(frameOpen_, false)) EngineServices::renderer()->endFrame();
    tick_ = false;
    canDraw_ = true;
}

std::uint32_t FramePacer::millisecondsToSleep() const { return canDraw_ ? 0 : timer_.millisecondsUntilDue(); }

}  // namespace grub
