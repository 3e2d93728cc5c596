#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "picture.h"

namespace grub {

/// One image, cut from top to bottom into frames of equal height: an animation, or the variants of a tile. Each frame
/// has its own texture, and the transform works inside each frame, so a mirrored strip keeps the order of its frames.
/// Rows below the last whole frame are not used.
class FrameStrip final : public Picture, public PoolAllocated<FrameStrip> {
public:
    using PoolAllocated<FrameStrip>::operator new;
    using PoolAllocated<FrameStrip>::operator delete;

    /// `frameHeight` is in pixels. With a frame height of 0, or above the image's, the strip has no frames: `acquire`
    /// works, but `draw` shows nothing.
    FrameStrip(const SharedBuffer& source, std::uint16_t frameHeight,
               TextureTransform uploadFlags = TextureTransform::Identity);

    /// As in a picture. The current frame keeps its index. If the new strip has no such frame, `draw` shows nothing
    /// until `setFrame`.
    bool reset(const SharedBuffer& source, std::uint16_t frameHeight, TextureTransform uploadFlags);

    void setColourKey(Colour key) override;
    /// The texture of the current frame, or null.
    [[nodiscard]] const Texture* texture() const override;

    /// Makes `index` the current frame; ignores an index that is not below frameCount(). Returns the current frame.
    std::uint16_t setFrame(std::uint16_t index);
    /// Index of the current frame; a new strip starts at 0.
    [[nodiscard]] std::uint16_t frame() const { return frame_; }
    [[nodiscard]] std::uint16_t frameCount() const { return frameCount_; }
    /// Height of the whole image in pixels; height() is that of a frame.
    [[nodiscard]] std::uint16_t stripHeight() const { return stripHeight_; }

private:
    bool makeTextures(const Pixels& pixels) override;
    void dropTextures() override;
    void cut(std::uint16_t frameHeight);

    std::vector<std::unique_ptr<Texture>> frames_;  // one for each frame while acquired, else empty
    std::uint16_t stripHeight_ = 0;
    std::uint16_t frameCount_ = 0;
    std::uint16_t frame_ = 0;
};

}  // namespace grub
