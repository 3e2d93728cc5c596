#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "block_pool.h"
#include "colour.h"
#include "graphic.h"
#include "image_decoder.h"
#include "shared_buffer.h"
#include "texture.h"

namespace grub {

/// One image and, while it is used, one texture. The image stays encoded in memory and is decoded by each first
/// `acquire`. Failures show in results only. One thread at a time uses a picture.
class Picture : public Graphic, public PoolAllocated<Picture> {
public:
    /// Empty: 0 x 0 pixels, nothing to acquire, until `reset` brings a source.
    Picture() = default;
    /// The encoded image (BMP, GIF or JPEG), of which only the size is read now, and what an upload does with it.
    /// Data that no decoder knows gives 0 x 0.
    explicit Picture(const SharedBuffer& source, TextureTransform uploadFlags = TextureTransform::Identity);
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    /// Another image. It is not in use afterwards, whoever had acquired the old one; the colour key stays. An empty
    /// source gives false and changes nothing: then the old image is still there and must not be taken for the new.
    bool reset(const SharedBuffer& source, TextureTransform uploadFlags);

    bool acquire() override;
    bool release() override;
    [[nodiscard]] bool isAcquired() const override { return useCount_ > 0; }
    void draw(Renderer& renderer, Position position, float opacity) const override;

    /// This colour shall be transparent where the image brings no alpha. Pixels change with the next first `acquire`;
    /// textures that exist are only told.
    virtual void setColourKey(Colour key);
    /// What `draw` shows, or null. Belongs to the picture.
    [[nodiscard]] virtual const Texture* texture() const { return texture_.get(); }

    /// What the last first `acquire` met, in a few words: why it failed, or what is lost of a damaged image that is
    /// shown as far as it goes. Empty when all is well.
    [[nodiscard]] const std::string& fault() const { return fault_; }
    /// Size in pixels, of one frame in a strip.
    [[nodiscard]] std::uint16_t width() const { return width_; }
    [[nodiscard]] std::uint16_t height() const { return height_; }

protected:
    /// The decoded source: rows of width() pixels, from top to bottom.
    struct Pixels {
        SharedBuffer rgb;    ///< 3 bytes a pixel
        SharedBuffer alpha;  ///< 1 byte a pixel; empty when the colour key decides
    };

    /// Makes what `texture` hands out. False when the renderer or an upload refuses; what was made may stay.
    virtual bool makeTextures(const Pixels& pixels);
    /// Destroys what `makeTextures` has made.
    virtual void dropTextures();
    /// A texture of width() x height() with the colour key and these pixels (alpha may be null); null when the renderer
    /// or the upload refuses.
    [[nodiscard]] std::unique_ptr<Texture> makeTexture(const std::uint8_t* rgb, const std::uint8_t* alpha) const;
    /// Makes height() that of a frame.
    void setHeight(std::uint16_t height) { height_ = height; }

private:
    void readSize();
    [[nodiscard]] std::optional<Pixels> decodeSource();

    std::unique_ptr<Texture> texture_;
    std::uint16_t width_ = 0;
    std::uint16_t height_ = 0;
    SharedBuffer source_;
    TextureTransform uploadFlags_ = TextureTransform::Identity;
    std::optional<Colour> colourKey_;
    std::uint32_t useCount_ = 0;
    std::string fault_;
};

}  // namespace grub
