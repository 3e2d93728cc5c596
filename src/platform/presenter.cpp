#include "presenter.h"

#include <SDL.h>

#include <cstdio>
#include <cstring>
#include <utility>

namespace platform {
namespace {

constexpr int kUsualWidth = 800;
constexpr int kUsualHeight = 600;
constexpr std::uint32_t kOpaque = 0xFF000000U;

void copyRows(testing::Picture& picture, const std::uint32_t* xrgb, int strideBytes) {
    const auto* row = reinterpret_cast<const char*>(xrgb);
    auto* pixel = picture.pixels.data();
    for (int y = 0; y < picture.height; ++y, row += strideBytes) {
        std::memcpy(pixel, row, static_cast<std::size_t>(picture.width) * sizeof *pixel);
        for (int x = 0; x < picture.width; ++x) *pixel++ |= kOpaque;
    }
}

}  // namespace

void Presenter::RendererCloser::operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }

void Presenter::TextureCloser::operator()(SDL_Texture* texture) const { SDL_DestroyTexture(texture); }

Presenter::~Presenter() = default;

std::uint64_t Presenter::hand(const std::uint32_t* xrgb, int width, int height, int strideBytes) {
    const std::lock_guard lock(lock_);
    arriving_.width = width;
    arriving_.height = height;
    arriving_.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    copyRows(arriving_, xrgb, strideBytes);
    fresh_ = true;
    return ++count_;
}

std::uint64_t Presenter::count() const {
    const std::lock_guard lock(lock_);
    return count_;
}

testing::Picture Presenter::latest() const {
    const std::lock_guard lock(lock_);
    return fresh_ ? arriving_ : shown_;
}

bool Presenter::takeFresh() {
    const std::lock_guard lock(lock_);
    if (!fresh_) return false;
    std::swap(arriving_, shown_);
    fresh_ = false;
    return true;
}

void Presenter::showFresh(SDL_Window& window) {
    if (takeFresh()) show(window);
}

void Presenter::showAgain(SDL_Window& window) {
    takeFresh();
    if (!shown_.pixels.empty()) show(window);
}

PictureArea Presenter::area(SDL_Window& window) const {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(&window, &width, &height);
    if (shown_.pixels.empty()) return PictureArea::fit(width, height, kUsualWidth, kUsualHeight);
    return PictureArea::fit(width, height, shown_.width, shown_.height);
}

bool Presenter::openRenderer(SDL_Window& window) {
    if (renderer_ || refused_) return renderer_ != nullptr;
    renderer_.reset(SDL_CreateRenderer(&window, -1, 0));
    if (!renderer_) renderer_.reset(SDL_CreateRenderer(&window, -1, SDL_RENDERER_SOFTWARE));
    refused_ = renderer_ == nullptr;
    if (refused_) std::fprintf(stderr, "video: the window cannot show pictures: %s\n", SDL_GetError());
    return !refused_;
}

bool Presenter::openTexture() {
    if (texture_ && textureWidth_ == shown_.width && textureHeight_ == shown_.height) return true;
    textureWidth_ = shown_.width;
    textureHeight_ = shown_.height;
    texture_.reset(SDL_CreateTexture(renderer_.get(), SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING,
                                     textureWidth_, textureHeight_));
    if (texture_) SDL_SetTextureBlendMode(texture_.get(), SDL_BLENDMODE_NONE);
    return texture_ != nullptr;
}

void Presenter::show(SDL_Window& window) {
    if (!openRenderer(window) || !openTexture()) return;
    // Uploaded each time: a driver may have lost the texture together with the window's contents.
    SDL_UpdateTexture(texture_.get(), nullptr, shown_.pixels.data(), shown_.width * 4);
    int width = 0;
    int height = 0;
    SDL_GetRendererOutputSize(renderer_.get(), &width, &height);
    const auto area = PictureArea::fit(width, height, shown_.width, shown_.height);
    SDL_SetTextureScaleMode(texture_.get(), area.isWholeFactor() ? SDL_ScaleModeNearest : SDL_ScaleModeLinear);
    SDL_SetRenderDrawColor(renderer_.get(), 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer_.get());
    const SDL_Rect place{area.x, area.y, area.width, area.height};
    SDL_RenderCopy(renderer_.get(), texture_.get(), nullptr, &place);
    SDL_RenderPresent(renderer_.get());
}

testing::Picture Presenter::readBack() {
    testing::Picture picture;
    if (!renderer_) return picture;
    SDL_GetRendererOutputSize(renderer_.get(), &picture.width, &picture.height);
    picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    SDL_RenderReadPixels(renderer_.get(), nullptr, SDL_PIXELFORMAT_ARGB8888, picture.pixels.data(), picture.width * 4);
    for (auto& pixel : picture.pixels) pixel |= kOpaque;
    return picture;
}

void Presenter::blacken() {
    if (!renderer_) return;
    SDL_SetRenderDrawColor(renderer_.get(), 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer_.get());
    SDL_RenderPresent(renderer_.get());
}

void Presenter::close() {
    texture_.reset();
    renderer_.reset();
}

}  // namespace platform
