#pragma once

#include <cstdint>

namespace grub {

/// An opaque colour as three bytes, as pictures and colour keys store it.
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

/// A picture that the renderer can draw. Made by `Renderer::createTexture`; the caller owns it.
/// Creation and uploads may come from any thread; drawing comes from the game thread.
class Texture {
public:
    virtual ~Texture() = default;

    /// A new texture with the same pixels, sizes and colour key, owned by the caller; not valid when the copy failed.
    [[nodiscard]] virtual Texture* clone() const = 0;
    /// Whether the device has room for the picture: an invalid texture refuses uploads and draws nothing.
    [[nodiscard]] virtual bool isValid() const = 0;
    /// Takes width x height pixels of 3 bytes R, G, B, rows top-down, and as many alpha bytes (null: the colour key
    /// decides, or everything is opaque). A quarter turn swaps width and height; it is refused for a picture whose
    /// backing is not square. False leaves the old pixels.
    virtual bool upload(const std::uint8_t* rgb, TextureTransform transform, const std::uint8_t* alpha) = 0;
    /// This colour becomes transparent in the next upload that brings no alpha.
    virtual void setColourKey(Colour key) = 0;
    /// Picture size in pixels (not that of the backing, which is a power of two).
    [[nodiscard]] virtual std::uint16_t width() const = 0;
    [[nodiscard]] virtual std::uint16_t height() const = 0;
};

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
