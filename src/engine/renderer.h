#pragma once

#include <cstdint>

namespace grub {

/// An opaque colour, as pictures and colour keys store it.
struct Colour {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;

    friend constexpr bool operator==(Colour, Colour) = default;
};

/// The engine's shared colours. `kBrown` is the colour key of the characters and of the panel picture.
inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kWhite{255, 255, 255};
inline constexpr Colour kBlue{0, 0, 255};
inline constexpr Colour kBrown{80, 54, 25};

/// How `Texture::upload` turns a picture. The values are stored in game data; turns are clockwise.
enum class TextureTransform : std::uint32_t {
    Identity = 0,
    Rotate90 = 1,
    Rotate180 = 2,
    Rotate270 = 4,
    FlipVertical = 8,
    FlipHorizontal = 16,
};

/// A picture that the renderer can draw. `Renderer::createTexture` makes it for the caller, who owns it. Any thread may
/// create and upload; the game thread draws.
class Texture {
public:
    virtual ~Texture() = default;

    /// Makes a texture with the same pixels, sizes and colour key. The caller owns it; it is not valid when the copy
    /// failed.
    [[nodiscard]] virtual Texture* clone() const = 0;
    /// False when the device had no room for the picture: the texture then refuses uploads and draws nothing.
    [[nodiscard]] virtual bool isValid() const = 0;
    /// Takes width x height pixels of 3 bytes R, G, B, rows top-down, and as many alpha bytes. Without alpha (null) the
    /// colour key becomes transparent, and without a key everything is opaque. A quarter turn swaps width and height;
    /// the texture refuses it when its backing is not square. False leaves the old pixels.
    virtual bool upload(const std::uint8_t* rgb, TextureTransform transform, const std::uint8_t* alpha) = 0;
    /// Makes this colour transparent in the next upload without alpha.
    virtual void setColourKey(Colour key) = 0;
    /// Size of the picture in pixels. The backing is larger: its sides are powers of two.
    [[nodiscard]] virtual std::uint16_t width() const = 0;
    [[nodiscard]] virtual std::uint16_t height() const = 0;
};

/// The screen in pixels, whatever the window's size. The level view and the pages are laid out for it.
inline constexpr int kScreenWidth = 800;
inline constexpr int kScreenHeight = 600;

/// Draws textured rectangles on the screen of 800 x 600 pixels, origin top-left. An operation returns false when the
/// device refused; only `init` shows a message. All calls come from the game thread, but `init` and `shutdown` from the
/// window's thread.
class Renderer {
public:
    virtual ~Renderer() = default;

    /// Creates the device. False after a message box that names what failed.
    virtual bool init() = 0;
    /// Releases the device. Always true.
    virtual bool shutdown() = 0;
    /// True while there is a device.
    [[nodiscard]] virtual bool isReady() const = 0;
    /// Makes a texture for a picture of this size. The caller owns it. Null when the renderer is not ready.
    [[nodiscard]] virtual Texture* createTexture(std::uint16_t width, std::uint16_t height) = 0;
    /// Starts a frame on a black screen.
    virtual bool beginFrame() = 0;
    /// Ends the frame and presents it. Restores a device that was lost.
    virtual bool endFrame() = 0;
    virtual bool clearRect(std::uint16_t x, std::uint16_t y, std::uint16_t w, std::uint16_t h, Colour colour) = 0;
    virtual bool clear(Colour colour) = 0;
    /// Draws the w x h texels from (srcX, srcY) of `texture` at (x, y). `alpha` is the opacity, 0 to 1.
    virtual bool drawPart(std::int16_t x, std::int16_t y, const Texture& texture, std::int16_t srcX, std::int16_t srcY,
                          std::uint16_t w, std::uint16_t h, float alpha) = 0;
    /// Draws the whole texture at (x, y). False also when it lies wholly off the screen, which is no error. An opacity
    /// below 0.05 draws nothing and gives true.
    virtual bool draw(std::int16_t x, std::int16_t y, const Texture& texture, float alpha) = 0;
};

}  // namespace grub
