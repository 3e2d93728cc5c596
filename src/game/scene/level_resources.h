#pragma once

#include <atomic>

#include "animation_table.h"
#include "level_loader.h"
#include "resource_loader.h"
#include "resource_source.h"

namespace grub {

/// The strips of all levels, and the loader thread that fetches them in two passes: first what every level needs, then
/// the rest, with the second phase of the sounds. Game thread.
class LevelResources {
public:
    /// Picture files come from `data`; the numbers of map strips go to `numbers`. Both outlive the resources.
    LevelResources(ResourceSource& data, SpriteNumbers& numbers) : animations_(data, numbers) {}
    LevelResources(const LevelResources&) = delete;
    LevelResources& operator=(const LevelResources&) = delete;
    ~LevelResources() = default;

    /// Starts the loader thread on the first list of strips, or on the second once the first is there.
    void startLoadingPass();
    /// Tells the loader to stop and waits until it has; nothing is loaded any more until a pass is started again.
    void stopLoading();
    /// Starts the second pass when the first is complete. Returns whether it did.
    bool startSecondPass();
    /// Whether both passes are complete.
    [[nodiscard]] bool isReady() const { return firstListThere_ && loader_.isComplete(); }
    /// Waits until the pass that runs is complete, at most so many milliseconds.
    void wait(DWORD milliseconds);

    [[nodiscard]] AnimationTable& animations() { return animations_; }
    [[nodiscard]] const AnimationTable& animations() const { return animations_; }

private:
    void loadStep(int step);

    AnimationTable animations_;
    std::atomic<bool> firstListThere_ = false;  // then a pass loads the second list
    ResourceLoader loader_;                     // last: its thread uses the members above
};

}  // namespace grub
