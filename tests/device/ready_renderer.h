#pragma once

#include <d3d8.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <ios>
#include <memory>
#include <vector>

#include "control/call_controls.h"
#include "control/testing.h"
#include "d3d_renderer.h"

namespace grub {

/// A window whose procedure answers for `renderer`, as the game's does.
class RendererWindow {
public:
    RendererWindow() {
        WNDCLASSEXA windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = answer;
        windowClass.lpszClassName = "RendererWindow";
        RegisterClassExA(&windowClass);
        handle_ = CreateWindowExA(0, windowClass.lpszClassName, "Renderer", 0, 0, 0, kScreenWidth, kScreenHeight,
                                  nullptr, nullptr, nullptr, nullptr);
    }
    ~RendererWindow() { DestroyWindow(handle_); }
    RendererWindow(const RendererWindow&) = delete;
    RendererWindow& operator=(const RendererWindow&) = delete;

    /// Valid as long as this object.
    [[nodiscard]] HWND handle() const { return handle_; }

    /// The renderer whose device answers the next message; one window exists at a time.
    static inline D3DRenderer* renderer = nullptr;

private:
    static LRESULT CALLBACK answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
            case D3DRenderer::kTestDeviceMessage: return renderer->testCooperativeLevel();
            case D3DRenderer::kResetDeviceMessage: return renderer->resetDevice();
            default: return DefWindowProcA(window, message, wParam, lParam);
        }
    }

    HWND handle_;
};

/// The pixels of the screen, 0x00RRGGBB.
class ScreenPixels {
public:
    explicit ScreenPixels(std::vector<std::uint32_t> pixels) : pixels_(std::move(pixels)) {}
    /// A screen of one colour.
    explicit ScreenPixels(std::uint32_t colour) : pixels_(std::size_t{kScreenWidth} * kScreenHeight, colour) {}

    /// Only inside of the screen.
    [[nodiscard]] std::uint32_t at(int x, int y) const { return pixels_.at(indexOf(x, y)); }
    /// Does nothing outside of the screen.
    void set(int x, int y, std::uint32_t colour) {
        if (x >= 0 && y >= 0 && x < kScreenWidth && y < kScreenHeight) pixels_.at(indexOf(x, y)) = colour;
    }

private:
    static std::size_t indexOf(int x, int y) {
        return static_cast<std::size_t>(y) * kScreenWidth + static_cast<std::size_t>(x);
    }

    std::vector<std::uint32_t> pixels_;
};

/// Prints the first pixel that differs, instead of half a million numbers.
inline testing::AssertionResult sameScreen(const ScreenPixels& got, const ScreenPixels& wanted) {
    for (int i = 0; i < kScreenWidth * kScreenHeight; ++i) {
        const int x = i % kScreenWidth;
        const int y = i / kScreenWidth;
        if (got.at(x, y) == wanted.at(x, y)) continue;
        return testing::AssertionFailure()
               << std::hex << got.at(x, y) << ", wanted " << wanted.at(x, y) << std::dec << " at " << x << ", " << y;
    }
    return testing::AssertionSuccess();
}

/// One texel: colour and opacity.
struct Texel {
    Colour colour;
    std::uint8_t alpha = 255;
};

/// 0x00RRGGBB.
constexpr std::uint32_t rgb(Colour colour) {
    return std::uint32_t{colour.r} << 16 | std::uint32_t{colour.g} << 8 | colour.b;
}

/// A renderer in a window on a desktop of 1600 x 1200.
class ReadyRenderer : public testing::Test {
public:
    ~ReadyRenderer() override { RendererWindow::renderer = nullptr; }

protected:
    ReadyRenderer() { RendererWindow::renderer = &renderer; }

    void SetUp() override { ASSERT_TRUE(renderer.init()); }

    /// An empty texture of the renderer; the test owns it.
    std::unique_ptr<Texture> makeTexture(int width, int height) {
        return std::unique_ptr<Texture>(
            renderer.createTexture(static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height)));
    }
    /// A texture that shows these texels, row by row.
    std::unique_ptr<Texture> makeTexture(int width, int height, const std::vector<Texel>& texels) {
        std::vector<std::uint8_t> colours;
        std::vector<std::uint8_t> alpha;
        for (const Texel& texel : texels) {
            colours.insert(colours.end(), {texel.colour.r, texel.colour.g, texel.colour.b});
            alpha.push_back(texel.alpha);
        }
        auto texture = makeTexture(width, height);
        EXPECT_TRUE(texture->upload(colours.data(), TextureTransform::Identity, alpha.data()));
        return texture;
    }
    /// A texture of one opaque colour.
    std::unique_ptr<Texture> plainTexture(int width, int height, Colour colour) {
        return makeTexture(width, height, std::vector<Texel>(static_cast<std::size_t>(width * height), Texel{colour}));
    }

    /// Draws at full opacity; `x` and `y` as in Renderer::draw.
    bool drawAt(int x, int y, const Texture& texture) {
        return renderer.draw(static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), texture, 1.0F);
    }

    /// Draws a frame over `background` and reads it back.
    template <class Draw>
    ScreenPixels frameOver(Colour background, Draw draw) {
        EXPECT_TRUE(renderer.beginFrame());
        EXPECT_TRUE(renderer.clear(background));
        draw();
        EXPECT_TRUE(renderer.endFrame());
        return ScreenPixels(device.frame());
    }

    platform::testing::DesktopSize desktop{1600, 1200};
    platform::testing::DeviceControls device;
    RendererWindow window;
    D3DRenderer renderer{window.handle(), kScreenWidth, kScreenHeight, false};
};

}  // namespace grub
