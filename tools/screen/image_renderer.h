#pragma once

#include "pixel_image.h"
#include "renderer.h"

namespace grub {

/// Draws on a picture of 800 x 600 pixels in memory. While it lives it is the program's renderer, so that strips take
/// their textures from it; one at a time. Its textures serve no other renderer. They come upright or mirrored from
/// left to right: an upload with another transform is refused.
class ImageRenderer final : public Renderer {
public:
    ImageRenderer();
    ImageRenderer(const ImageRenderer&) = delete;
    ImageRenderer& operator=(const ImageRenderer&) = delete;
    ~ImageRenderer() override;

    bool init() override { return true; }
    bool shutdown() override { return true; }
    [[nodiscard]] bool isReady() const override { return true; }
    [[nodiscard]] Texture* createTexture(std::uint16_t width, std::uint16_t height) override;
    bool beginFrame() override { return clear(kBlack); }
    bool endFrame() override { return true; }
    bool clearRect(std::uint16_t x, std::uint16_t y, std::uint16_t w, std::uint16_t h, Colour colour) override;
    bool clear(Colour colour) override;
    bool drawPart(std::int16_t x, std::int16_t y, const Texture& texture, std::int16_t srcX, std::int16_t srcY,
                  std::uint16_t w, std::uint16_t h, float alpha) override;
    bool draw(std::int16_t x, std::int16_t y, const Texture& texture, float alpha) override;

    /// What has been drawn; opaque.
    [[nodiscard]] const PixelImage& screen() const { return screen_; }

private:
    PixelImage screen_;
};

}  // namespace grub
