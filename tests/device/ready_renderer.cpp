#include "ready_renderer.h"

#include <ios>

namespace grub {
namespace {

LRESULT CALLBACK answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case D3DRenderer::kTestDeviceMessage: return RendererWindow::renderer->testCooperativeLevel();
        case D3DRenderer::kResetDeviceMessage: return RendererWindow::renderer->resetDevice();
        default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

}  // namespace

RendererWindow::RendererWindow() {
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = answer;
    windowClass.lpszClassName = "RendererWindow";
    RegisterClassExA(&windowClass);
    handle_ = CreateWindowExA(0, windowClass.lpszClassName, "Renderer", 0, 0, 0, kScreenWidth, kScreenHeight, nullptr,
                              nullptr, nullptr, nullptr);
}

RendererWindow::~RendererWindow() { DestroyWindow(handle_); }

testing::AssertionResult sameScreen(const ScreenPixels& got, const ScreenPixels& wanted) {
    for (int i = 0; i < kScreenWidth * kScreenHeight; ++i) {
        const int x = i % kScreenWidth;
        const int y = i / kScreenWidth;
        if (got.at(x, y) == wanted.at(x, y)) continue;
        return testing::AssertionFailure()
               << std::hex << got.at(x, y) << ", wanted " << wanted.at(x, y) << std::dec << " at " << x << ", " << y;
    }
    return testing::AssertionSuccess();
}

std::unique_ptr<Texture> ReadyRenderer::makeTexture(int width, int height) {
    return std::unique_ptr<Texture>(
        renderer.createTexture(static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height)));
}

std::unique_ptr<Texture> ReadyRenderer::makeTexture(int width, int height, const std::vector<Texel>& texels) {
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

std::unique_ptr<Texture> ReadyRenderer::plainTexture(int width, int height, Colour colour) {
    return makeTexture(width, height, std::vector<Texel>(static_cast<std::size_t>(width * height), Texel{colour}));
}

}  // namespace grub
