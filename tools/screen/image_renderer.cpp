#include "image_renderer.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "engine_services.h"

namespace grub {

namespace {

/// A lower opacity draws nothing.
constexpr float kFaintest = 0.05F;

class ImageTexture final : public Texture {
public:
    ImageTexture(int width, int height) : image_(width, height) {}

    [[nodiscard]] Texture* clone() const override { return new ImageTexture(*this); }
    [[nodiscard]] bool isValid() const override { return true; }
    bool upload(const std::uint8_t* rgb, TextureTransform transform, const std::uint8_t* alpha) override;
    void setColourKey(Colour key) override { key_ = key; }
    [[nodiscard]] std::uint16_t width() const override { return static_cast<std::uint16_t>(image_.width); }
    [[nodiscard]] std::uint16_t height() const override { return static_cast<std::uint16_t>(image_.height); }
    [[nodiscard]] const PixelImage& image() const { return image_; }

private:
    PixelImage image_;
    std::optional<Colour> key_;
};

bool ImageTexture::upload(const std::uint8_t* rgb, TextureTransform transform, const std::uint8_t* alpha) {
    const bool mirrored = transform == TextureTransform::FlipHorizontal;
    if (!mirrored && transform != TextureTransform::Identity) return false;
    for (int y = 0; y < image_.height; ++y) {
        for (int x = 0; x < image_.width; ++x, rgb += 3) {
            const bool clear = key_ == Colour{rgb[0], rgb[1], rgb[2]};
            const std::uint8_t opacity = alpha != nullptr ? *alpha++ : clear ? std::uint8_t{0} : std::uint8_t{255};
            image_.at(mirrored ? image_.width - 1 - x : x, y) = {rgb[0], rgb[1], rgb[2], opacity};
        }
    }
    return true;
}

/// `opacity` is 0 to 255.
std::uint8_t mix(std::uint8_t under, std::uint8_t over, int opacity) {
    return static_cast<std::uint8_t>((over * opacity + under * (255 - opacity) + 127) / 255);
}

void blend(Pixel& under, const Pixel& over, float alpha) {
    const int opacity = static_cast<int>(std::lround(static_cast<float>(over.a) * alpha));
    under = {mix(under.r, over.r, opacity), mix(under.g, over.g, opacity), mix(under.b, over.b, opacity), under.a};
}

}  // namespace

ImageRenderer::ImageRenderer() : screen_(kScreenWidth, kScreenHeight) {
    clear(kBlack);
    EngineServices::installRenderer(this);
}

ImageRenderer::~ImageRenderer() { EngineServices::installRenderer(nullptr); }

Texture* ImageRenderer::createTexture(std::uint16_t width, std::uint16_t height) {
    return new ImageTexture(width, height);
}

bool ImageRenderer::clearRect(std::uint16_t x, std::uint16_t y, std::uint16_t w, std::uint16_t h, Colour colour) {
    const int right = std::min(x + w, kScreenWidth);
    for (int row = y; row < std::min(y + h, kScreenHeight); ++row)
        for (int column = x; column < right; ++column) screen_.at(column, row) = {colour.r, colour.g, colour.b, 255};
    return true;
}

bool ImageRenderer::clear(Colour colour) { return clearRect(0, 0, kScreenWidth, kScreenHeight, colour); }

bool ImageRenderer::drawPart(std::int16_t x, std::int16_t y, const Texture& texture, std::int16_t srcX,
                             std::int16_t srcY, std::uint16_t w, std::uint16_t h, float alpha) {
    const PixelImage& image = static_cast<const ImageTexture&>(texture).image();
    const int left = std::max({0, -x, -srcX});
    const int top = std::max({0, -y, -srcY});
    const int right = std::min({int{w}, kScreenWidth - x, image.width - srcX});
    const int bottom = std::min({int{h}, kScreenHeight - y, image.height - srcY});
    if (left >= right || top >= bottom) return false;
    if (alpha < kFaintest) return true;
    for (int row = top; row < bottom; ++row)
        for (int column = left; column < right; ++column)
            blend(screen_.at(x + column, y + row), image.at(srcX + column, srcY + row), alpha);
    return true;
}

bool ImageRenderer::draw(std::int16_t x, std::int16_t y, const Texture& texture, float alpha) {
    return drawPart(x, y, texture, 0, 0, texture.width(), texture.height(), alpha);
}

}  // namespace grub
