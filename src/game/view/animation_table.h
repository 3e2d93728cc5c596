#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "animation_frames.h"
#include "engine_string.h"
#include "frame_strip.h"
#include "level_loader.h"
#include "loading_list.h"
#include "renderer.h"
#include "resource_source.h"

namespace grub {

/// All strips of a level by animation id. One thread (the loader) adds, another (the game) uses what has been added: a
/// strip appears in its place only when it is complete, and from then on the loader does not touch it.
class AnimationTable {
public:
    /// Picture files come from `source`; the numbers of map strips go to `numbers`. Both outlive the table.
    AnimationTable(ResourceSource& source, SpriteNumbers& numbers) : source_(source), numbers_(numbers) {}
    AnimationTable(const AnimationTable&) = delete;
    AnimationTable& operator=(const AnimationTable&) = delete;
    ~AnimationTable();

    /// Adds the strip of a row of the loading list, as `addAnimationFile` or `addBlockAnimationFile` does.
    bool add(const LoadEntry& entry);
    /// Adds the strip of a picture file, with its textures. False when it was not added: loading is being stopped, or
    /// there is no such file; `missing` then remembers the id.
    bool addAnimationFile(const EngineString& file, int id, std::uint16_t frameHeight, TextureTransform transform,
                          Colour colourKey);
    /// The same for a strip of the map: frames of 64 pixels, known to the block table by `spriteNumber` (unless -1). A
    /// missing file adds neither strip nor number and is not remembered.
    bool addBlockAnimationFile(const EngineString& file, int id, int spriteNumber, Colour colourKey);
    /// As the two above, from a picture file that is in memory already.
    bool addAnimationImage(const SharedBuffer& image, int id, std::uint16_t frameHeight, TextureTransform transform,
                           Colour colourKey);
    bool addBlockAnimationImage(const SharedBuffer& image, int id, int spriteNumber, Colour colourKey);

    /// The strip with this id; null for ids outside the table, not loaded yet or missing.
    [[nodiscard]] FrameStrip* strip(int id) const;
    /// Highest id added since `forgetCount`, plus 1.
    [[nodiscard]] int count() const { return count_.load(); }
    void forgetCount() { count_ = 0; }
    /// The id of the last strip whose file was missing, or -1.
    [[nodiscard]] int missing() const { return missing_.load(); }
    /// How many frames each strip has, 0 for a missing strip: all that the rules know of the strips.
    [[nodiscard]] AnimationFrameCounts frameCounts() const;

    /// Counts one use more, or one less, of every strip that is there.
    void acquireAll();
    void releaseAll();

    /// While stopped, adding does nothing. Any thread.
    void stopLoading(bool stopped) { stopped_ = stopped; }
    [[nodiscard]] bool isStopped() const { return stopped_.load(); }

private:
    ResourceSource& source_;
    SpriteNumbers& numbers_;
    std::array<std::atomic<FrameStrip*>, kAnimationSlots> slots_{};  // owned
    std::atomic<int> count_ = 0;
    std::atomic<int> missing_ = -1;
    std::atomic<bool> stopped_ = false;
};

}  // namespace grub
