#pragma once

#include <cstdint>

#include "colour.h"
#include "texture.h"

namespace grub {

/// Draws textured rectangles on the screen of 800 x 600 pixels, origin top-left. Results are false when the device
/// refused; nothing here shows a message but `init`. All calls come from the game thread, `init` and `shutdown` from
/// the window's thread.
class Renderer {
public:
    virtual ~Renderer() = default;

    /// Creates the device. False after a message box that names what failed.
    virtual bool init() = 0;
    /// Releases the device. Always true.
    virtual bool shutdown() = 0;
    /// Whether there is a device.
    [[nodiscard]] virtual bool isReady() const = 0;
    /// A texture for a picture of this size, owned by the caller; null when the renderer is not ready.
    [[nodiscard]] virtual Texture* createTexture(std::uint16_t width, std::uint16_t height) = 0;
    /// Starts a frame on a black screen.
    virtual bool beginFrame() = 0;
    /// Ends the frame and presents it; a lost device is restored here.
    virtual bool endFrame() = 0;
    /// Fills a rectangle with one colour.
    virtual bool clearRect(std::uint16_t x, std::uint16_t y, std::uint16_t w, std::uint16_t h, Colour colour) = 0;
    /// Fills the screen with one colour.
    virtual bool clear(Colour colour) = 0;
    /// Draws the w x h texels from (srcX, srcY) of `texture` at (x, y). `alpha` is the opacity, 0 to 1.
    virtual bool drawPart(std::int16_t x, std::int16_t y, const Texture& texture, std::int16_t srcX, std::int16_t srcY,
                          std::uint16_t w, std::uint16_t h, float alpha) = 0;
    /// Draws the whole texture at (x, y). False also when it lies wholly off the screen: no caller may take that for
    /// an error. An opacity below 0.05 draws nothing and gives true.
    virtual bool draw(std::int16_t x, std::int16_t y, const Texture& texture, float alpha) = 0;
};

}  // namespace grub
