#include "picture.h"

#include "engine_services.h"
#include "image_decoder.h"

namespace grub {

Picture::Picture(const SharedBuffer& source, TextureTransform uploadFlags)
    : source_(source), uploadFlags_(uploadFlags) {
    readSize();
}

bool Picture::reset(const SharedBuffer& source, TextureTransform uploadFlags) {
    if (source.empty()) return false;
    dropTextures();
    source_ = source;
    uploadFlags_ = uploadFlags;
    useCount_ = 0;
    readSize();
    return true;
}

void Picture::readSize() {
    const auto decoder = createImageDecoder(source_);
    width_ = decoder != nullptr ? decoder->width() : std::uint16_t{0};
    height_ = decoder != nullptr ? decoder->height() : std::uint16_t{0};
}

bool Picture::acquire() {
    if (useCount_ > 0) {
        ++useCount_;
        return true;
    }
    const auto pixels = decodeSource();
    if (!pixels) return false;
    if (!makeTextures(*pixels)) {
        fault_ = "the renderer has no texture for it";
        dropTextures();
        return false;
    }
    useCount_ = 1;
    return true;
}

bool Picture::release() {
    if (useCount_ > 0 && --useCount_ == 0) dropTextures();
    return true;
}

std::optional<Picture::Pixels> Picture::decodeSource() {
    const auto decoder = createImageDecoder(source_);
    Pixels pixels;
    const bool decoded = decoder != nullptr && decoder->decode(pixels.rgb, pixels.alpha);
    fault_ = decoder != nullptr ? decoder->fault() : "neither BMP, GIF nor JPEG";
    if (!decoded) return std::nullopt;
    return pixels;
}

bool Picture::makeTextures(const Pixels& pixels) {
    texture_ = makeTexture(pixels.rgb.data(), pixels.alpha.data());
    return texture_ != nullptr;
}

void Picture::dropTextures() { texture_.reset(); }

std::unique_ptr<Texture> Picture::makeTexture(const std::uint8_t* rgb, const std::uint8_t* alpha) const {
    Renderer* const renderer = EngineServices::renderer();
    if (renderer == nullptr) return nullptr;
    std::unique_ptr<Texture> texture(renderer->createTexture(width_, height_));
    if (texture == nullptr) return nullptr;
    if (colourKey_) texture->setColourKey(*colourKey_);
    if (!texture->upload(rgb, uploadFlags_, alpha)) return nullptr;
    return texture;
}

void Picture::draw(Renderer& renderer, Position position, float opacity) const {
    if (const Texture* const shown = texture()) renderer.draw(position.x, position.y, *shown, opacity);
}

void Picture::setColourKey(Colour key) {
    colourKey_ = key;
    if (texture_ != nullptr) texture_->setColourKey(key);
}

}  // namespace grub
