#include "d3d_renderer.h"

#include <cmath>
#include <cstring>

#include "d3d_texture.h"

namespace grub {
namespace {

// `draw` draws nothing below this opacity, and sends no change that is smaller than this.
constexpr float kOpacityStep = 0.05F;
constexpr DWORD kLostDevicePause = 100;  // ms

D3DCOLOR opaque(Colour colour) { return 0xFF000000U | D3DCOLOR{colour.r} << 16 | D3DCOLOR{colour.g} << 8 | colour.b; }

// Alpha byte of the texture factor.
DWORD alphaByte(float alpha) {
    if (alpha >= 1.0F) return 255;
    if (alpha <= 0.0F) return 0;
    const float raised = alpha * 255.0F + 0.5F;
    return static_cast<DWORD>(raised);
}

// With its corners on the centres of pixels a rectangle shows each texel on one pixel.
template <class Quad>
void placeCorners(Quad& quad, int x, int y, std::uint32_t w, std::uint32_t h) {
    const float left = static_cast<float>(x) + 0.5F;
    const float top = static_cast<float>(y) + 0.5F;
    const float right = static_cast<float>(x) + static_cast<float>(w) + 0.5F;
    const float bottom = static_cast<float>(y) + static_cast<float>(h) + 0.5F;
    quad[0].x = quad[1].x = quad[3].x = left;
    quad[2].x = quad[4].x = quad[5].x = right;
    quad[1].y = quad[3].y = quad[4].y = top;
    quad[0].y = quad[2].y = quad[5].y = bottom;
}

}  // namespace

D3DRenderer::D3DRenderer(HWND window, std::uint16_t width, std::uint16_t height, bool fullScreen)
    : width_(width), height_(height), window_(window), fullScreen_(fullScreen) {
    // Bottom-left, top-left, bottom-right; top-left, top-right, bottom-right.
    constexpr float kU[] = {0, 0, 1, 0, 1, 1};
    constexpr float kV[] = {1, 0, 1, 0, 0, 1};
    for (std::size_t i = 0; i < fullQuad_.size(); ++i) fullQuad_[i] = {0, 0, 1, 1, kU[i], kV[i]};
    partQuad_ = fullQuad_;
}

D3DRenderer::~D3DRenderer() { D3DRenderer::shutdown(); }

bool D3DRenderer::shutdown() {
    vertexBuffer_.reset();
    if (device_) device_->SetTexture(0, nullptr);
    device_.reset();
    direct3d_.reset();
    currentTexture_ = nullptr;
    return true;
}

Texture* D3DRenderer::createTexture(std::uint16_t width, std::uint16_t height) {
    if (!isReady()) return nullptr;
    const bool square = (caps_.TextureCaps & D3DPTEXTURECAPS_SQUAREONLY) != 0;
    return new D3DTexture(*device_, width, height, textureFormat_, square);
}

bool D3DRenderer::beginFrame() { return clear(kBlack) && SUCCEEDED(device_->BeginScene()); }

bool D3DRenderer::endFrame() {
    if (!isReady() || FAILED(device_->EndScene())) return false;
    const HRESULT presented = device_->Present(nullptr, nullptr, nullptr, nullptr);
    if (presented == D3DERR_DEVICELOST) restoreLostDevice();
    return SUCCEEDED(presented);
}

bool D3DRenderer::clearRect(std::uint16_t x, std::uint16_t y, std::uint16_t w, std::uint16_t h, Colour colour) {
    const D3DRECT rect{x, y, x + w, y + h};
    return isReady() && SUCCEEDED(device_->Clear(1, &rect, D3DCLEAR_TARGET, opaque(colour), 1.0F, 0));
}

bool D3DRenderer::clear(Colour colour) {
    return isReady() && SUCCEEDED(device_->Clear(0, nullptr, D3DCLEAR_TARGET, opaque(colour), 1.0F, 0));
}

bool D3DRenderer::draw(std::int16_t x, std::int16_t y, const Texture& texture, float alpha) {
    if (!isReady() || isOffScreen(x, y, texture.width(), texture.height())) return false;
    if (alpha < kOpacityStep) return true;
    const auto& d3dTexture = static_cast<const D3DTexture&>(texture);
    if (!bindTexture(d3dTexture) || !sendOpacity(alpha)) return false;
    placeCorners(fullQuad_, x, y, d3dTexture.backingWidth(), d3dTexture.backingHeight());
    return drawQuad(fullQuad_);
}

bool D3DRenderer::drawPart(std::int16_t x, std::int16_t y, const Texture& texture, std::int16_t srcX, std::int16_t srcY,
                           std::uint16_t w, std::uint16_t h, float alpha) {
    if (!isReady() || isOffScreen(x, y, w, h)) return false;
    if (alpha < kOpacityStep) return true;
    const auto& d3dTexture = static_cast<const D3DTexture&>(texture);
    if (!bindTexture(d3dTexture) || !sendOpacity(alpha)) return false;
    placeCorners(partQuad_, x, y, w, h);
    const auto columns = static_cast<float>(d3dTexture.backingWidth());
    const auto rows = static_cast<float>(d3dTexture.backingHeight());
    partQuad_[0].u = partQuad_[1].u = partQuad_[3].u = static_cast<float>(srcX) / columns;
    partQuad_[2].u = partQuad_[4].u = partQuad_[5].u = static_cast<float>(srcX + w) / columns;
    partQuad_[1].v = partQuad_[3].v = partQuad_[4].v = static_cast<float>(srcY) / rows;
    partQuad_[0].v = partQuad_[2].v = partQuad_[5].v = static_cast<float>(srcY + h) / rows;
    return drawQuad(partQuad_);
}

bool D3DRenderer::isOffScreen(int x, int y, int w, int h) const {
    return x + w <= 0 || y + h <= 0 || x >= width_ || y >= height_;
}

bool D3DRenderer::bindTexture(const D3DTexture& texture) {
    if (texture.surface() == currentTexture_) return true;
    if (FAILED(device_->SetTexture(0, texture.surface()))) return false;
    currentTexture_ = texture.surface();
    return true;
}

bool D3DRenderer::sendOpacity(float alpha) {
    if (std::fabs(alpha - currentAlpha_) < kOpacityStep) return true;
    const DWORD factor = alphaByte(alpha) << 24 | 0xFFFFFF;
    if (FAILED(device_->SetRenderState(D3DRS_TEXTUREFACTOR, factor))) return false;
    currentAlpha_ = alpha;
    return true;
}

bool D3DRenderer::drawQuad(const Quad& quad) {
    BYTE* vertices = nullptr;
    if (FAILED(vertexBuffer_->Lock(0, sizeof quad, &vertices, 0))) return false;
    std::memcpy(vertices, quad.data(), sizeof quad);
    return SUCCEEDED(vertexBuffer_->Unlock()) && SUCCEEDED(device_->DrawPrimitive(D3DPT_TRIANGLELIST, 0, 2));
}

bool D3DRenderer::setFullScreen(bool fullScreen) {
    if (fullScreen_ == fullScreen) return true;
    fullScreen_ = fullScreen;
    buildPresentParameters();
    if (requestReset()) return true;
    // The old mode stays: the next reset of a lost device asks for it, and the next call tries the refused one again.
    fullScreen_ = !fullScreen;
    buildPresentParameters();
    return false;
}

// A reset forgets all states and bindings.
bool D3DRenderer::requestReset() {
    if (FAILED(static_cast<HRESULT>(SendMessageA(window_, kResetDeviceMessage, 0, 0)))) return false;
    applyDeviceStates();
    return true;
}

void D3DRenderer::restoreLostDevice() {
    const auto answer = static_cast<HRESULT>(SendMessageA(window_, kTestDeviceMessage, 0, 0));
    if (answer == D3DERR_DEVICELOST) Sleep(kLostDevicePause);
    if (answer == D3DERR_DEVICENOTRESET) requestReset();
}

HRESULT D3DRenderer::testCooperativeLevel() { return isReady() ? device_->TestCooperativeLevel() : D3DERR_INVALIDCALL; }

HRESULT D3DRenderer::resetDevice() { return isReady() ? device_->Reset(&presentParams_) : D3DERR_INVALIDCALL; }

}  // namespace grub
