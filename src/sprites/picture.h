#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "block_pool.h"
#include "renderer.h"
#include "resource_source.h"

namespace grub {

/// The top-left corner of a sprite, in screen pixels.
struct Position {
    std::int16_t x = 0;
    std::int16_t y = 0;

    friend constexpr bool operator==(Position, Position) = default;
};

/// An image that can be drawn while it is in use. Textures exist from the first `acquire` to the last `release`, so a
/// scene decides when video memory is spent.
class Graphic {
public:
    virtual ~Graphic() = default;

    /// Counts a use; the first one makes the textures. Returns false and counts no use when it cannot make them.
    virtual bool acquire() = 0;
    /// Ends a use; the last one destroys the textures. Always returns true, also without a use.
    virtual bool release() = 0;
    [[nodiscard]] virtual bool isAcquired() const = 0;
    /// `opacity` is 0 to 1. Draws nothing while the image is not acquired.
    virtual void draw(Renderer& renderer, Position position, float opacity) const = 0;
};

/// One image and, while it is in use, one texture. The image stays encoded in memory; each first `acquire` decodes it.
/// Failures show in results only. One thread at a time uses a picture.
class Picture : public Graphic, public PoolAllocated<Picture> {
public:
    /// An empty picture of 0 x 0 pixels: `acquire` fails until `reset` brings a source.
    Picture() = default;
    /// `source` is the encoded image (BMP, GIF or JPEG), of which this reads the size only; each upload applies
    /// `uploadFlags`. Data that no decoder knows gives 0 x 0.
    explicit Picture(const SharedBuffer& source, TextureTransform uploadFlags = TextureTransform::Identity);
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    /// Replaces the image, forgets all uses, and keeps the colour key. An empty source returns false and changes
    /// nothing: then the old image is still there.
    bool reset(const SharedBuffer& source, TextureTransform uploadFlags);

    bool acquire() override;
    bool release() override;
    [[nodiscard]] bool isAcquired() const override { return useCount_ > 0; }
    void draw(Renderer& renderer, Position position, float opacity) const override;

    /// Makes this colour transparent unless the image has alpha. Textures that exist take the key too, but their pixels
    /// change only with the next first `acquire`.
    virtual void setColourKey(Colour key);
    /// What `draw` shows, or null. The picture owns it.
    [[nodiscard]] virtual const Texture* texture() const { return texture_.get(); }

    /// What was wrong at the last decoding, in a few words: why `acquire` failed, or what a damaged image lacks that is
    /// shown as far as it goes. Empty when all is well.
    [[nodiscard]] const std::string& fault() const { return fault_; }
    /// Size in pixels; of one frame in a strip.
    [[nodiscard]] std::uint16_t width() const { return width_; }
    [[nodiscard]] std::uint16_t height() const { return height_; }

protected:
    /// The decoded source, rows from top to bottom.
    struct Pixels {
        SharedBuffer rgb;    ///< 3 bytes a pixel
        SharedBuffer alpha;  ///< 1 byte a pixel; empty when the colour key decides
    };

    /// Makes what `texture` returns. False when the renderer or an upload refuses; some textures may be left then.
    virtual bool makeTextures(const Pixels& pixels);
    virtual void dropTextures();
    /// Returns a texture of width() x height() with the colour key and these pixels (`alpha` may be null). Null when
    /// the renderer or the upload refuses.
    [[nodiscard]] std::unique_ptr<Texture> makeTexture(const std::uint8_t* rgb, const std::uint8_t* alpha) const;
    /// A strip makes height() that of a frame.
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
