#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "picture.h"

namespace grub {

/// One image cut into frames of equal height that are stacked from top to bottom: an animation, or the variants of a
/// tile. Each frame is a texture of its own, and the transform works in each of them, so a mirrored or upturned strip
/// keeps the order of its frames. Rows below the last whole frame are not used.
class FrameStrip final : public Picture, public PoolAllocated<FrameStrip> {
public:
    using PoolAllocated<FrameStrip>::operator new;
    using PoolAllocated<FrameStrip>::operator delete;

    /// `frameHeight` is in pixels. A strip lower than that, and a frame height of 0, have no frame: it can be acquired,
    /// but shows nothing.
    FrameStrip(const SharedBuffer& source, std::uint16_t frameHeight,
               TextureTransform uploadFlags = TextureTransform::Identity);

    /// As in a picture. The current frame stays what it was, even where the new strip has no such frame: then nothing
    /// is drawn until `setFrame`.
    bool reset(const SharedBuffer& source, std::uint16_t frameHeight, TextureTransform uploadFlags);

    void setColourKey(Colour key) override;
    /// That of the current frame, or null.
    [[nodiscard]] const Texture* texture() const override;

    /// Makes `index` the current frame if there is such a frame. The current frame either way.
    std::uint16_t setFrame(std::uint16_t index);
    /// Index of the current frame; 0 at first.
    [[nodiscard]] std::uint16_t frame() const { return frame_; }
    /// Whole frames in the strip, 0 or more.
    [[nodiscard]] std::uint16_t frameCount() const { return frameCount_; }
    /// Height of the whole image in pixels; height() is that of a frame.
    [[nodiscard]] std::uint16_t stripHeight() const { return stripHeight_; }

private:
    bool makeTextures(const Pixels& pixels) override;
    void dropTextures() override;
    void cut(std::uint16_t frameHeight);

    std::vector<std::unique_ptr<Texture>> frames_;  // one for each frame while acquired, else none
    std::uint16_t stripHeight_ = 0;
    std::uint16_t frameCount_ = 0;
    std::uint16_t frame_ = 0;
};

}  // namespace grub
