#include "frame_strip.h"

namespace grub {

FrameStrip::FrameStrip(const SharedBuffer& source, std::uint16_t frameHeight, TextureTransform uploadFlags)
    : Picture(source, uploadFlags) {
    cut(frameHeight);
}

bool FrameStrip::reset(const SharedBuffer& source, std::uint16_t frameHeight, TextureTransform uploadFlags) {
    if (!Picture::reset(source, uploadFlags)) return false;
    cut(frameHeight);
    return true;
}

// Until the last line height() is that of the whole strip.
void FrameStrip::cut(std::uint16_t frameHeight) {
    stripHeight_ = height();
    frameCount_ = frameHeight == 0 ? std::uint16_t{0} : static_cast<std::uint16_t>(stripHeight_ / frameHeight);
    setHeight(frameHeight);
}

bool FrameStrip::makeTextures(const Pixels& pixels) {
    const std::size_t framePixels = std::size_t{width()} * height();
    const bool hasAlpha = !pixels.alpha.empty();
    frames_.reserve(frameCount_);
    for (std::size_t i = 0; i < frameCount_; ++i) {
        auto frame = makeTexture(pixels.rgb.data() + i * framePixels * 3,
                                 hasAlpha ? pixels.alpha.data() + i * framePixels : nullptr);
        if (frame == nullptr) return false;
        frames_.push_back(std::move(frame));
    }
    return true;
}

void FrameStrip::dropTextures() { frames_.clear(); }

void FrameStrip::setColourKey(Colour key) {
    Picture::setColourKey(key);
    for (const auto& frame : frames_) frame->setColourKey(key);
}

const Texture* FrameStrip::texture() const { return frame_ < frames_.size() ? frames_[frame_].get() : nullptr; }

std::uint16_t FrameStrip::setFrame(std::uint16_t index) {
    if (index < frameCount_) frame_ = index;
    return frame_;
}

}  // namespace grub
