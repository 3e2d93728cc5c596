#include "desktop/presenter.h"

#include <SDL.h>

#include <cstring>
#include <utility>

#include "desktop/messages.h"
#include "desktop/window.h"
#include "kernel/waits.h"

namespace platform {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000U;

// The fourth byte is copied, too: the screen does not use it.
void copyRows(ScreenPicture& picture, const std::uint32_t* xrgb, int strideBytes) {
    const auto* row = reinterpret_cast<const char*>(xrgb);
    auto* pixel = picture.pixels.data();
    for (int y = 0; y < picture.height; ++y, row += strideBytes, pixel += picture.width)
        std::memcpy(pixel, row, static_cast<std::size_t>(picture.width) * sizeof *pixel);
}

PictureObserver& theObserver() {
    static auto* observer = new PictureObserver;
    return *observer;
}

}  // namespace

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

ScreenPicture Presenter::latest() const {
    ScreenPicture picture;
    {
        const std::lock_guard lock(lock_);
        picture = fresh_ ? arriving_ : shown_;
    }
    for (std::uint32_t& pixel : picture.pixels) pixel |= kOpaque;
    return picture;
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
    if (shown_.pixels.empty()) return PictureArea::fit(width, height, width, height);
    return PictureArea::fit(width, height, shown_.width, shown_.height);
}

bool Presenter::openTexture() {
    if (texture_ && textureWidth_ == shown_.width && textureHeight_ == shown_.height) return true;
    textureWidth_ = shown_.width;
    textureHeight_ = shown_.height;
    texture_.reset(SDL_CreateTexture(renderer_, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING, textureWidth_,
                                     textureHeight_));
    if (texture_) SDL_SetTextureBlendMode(texture_.get(), SDL_BLENDMODE_NONE);
    return texture_ != nullptr;
}

void Presenter::show(SDL_Window& window) {
    renderer_ = SDL_GetRenderer(&window);
    if (renderer_ == nullptr || !openTexture()) return;
    // Uploaded each time: a driver may have lost the texture together with the window's contents.
    SDL_UpdateTexture(texture_.get(), nullptr, shown_.pixels.data(), shown_.width * 4);
    int width = 0;
    int height = 0;
    SDL_GetRendererOutputSize(renderer_, &width, &height);
    const auto area = PictureArea::fit(width, height, shown_.width, shown_.height);
    SDL_SetTextureScaleMode(texture_.get(), area.isWholeFactor() ? SDL_ScaleModeNearest : SDL_ScaleModeLinear);
    SDL_SetRenderDrawColor(renderer_, 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer_);
    const SDL_Rect place{area.x, area.y, area.width, area.height};
    SDL_RenderCopy(renderer_, texture_.get(), nullptr, &place);
    SDL_RenderPresent(renderer_);
}

ScreenPicture Presenter::readBack() {
    ScreenPicture picture;
    if (renderer_ == nullptr) return picture;
    SDL_GetRendererOutputSize(renderer_, &picture.width, &picture.height);
    picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    SDL_RenderReadPixels(renderer_, nullptr, SDL_PIXELFORMAT_ARGB8888, picture.pixels.data(), picture.width * 4);
    for (auto& pixel : picture.pixels) pixel |= kOpaque;
    return picture;
}

void Presenter::blacken() {
    if (renderer_ == nullptr) return;
    SDL_SetRenderDrawColor(renderer_, 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer_);
    SDL_RenderPresent(renderer_);
}

void Presenter::close() {
    texture_.reset();
    renderer_ = nullptr;
}

void observePictures(PictureObserver observer) { theObserver() = std::move(observer); }

bool showFrame(HWND handle, const std::uint32_t* xrgb, int width, int height, int strideBytes) {
    const auto window = windowOf(handle);
    if (!window) return false;
    const auto number = window->presenter.hand(xrgb, width, height, strideBytes);
    {
        const WaitGuard lock(waitLock());
        if (!window->alive) return false;
        window->frameArrived = true;
        wakeOwner(*window);
    }
    const auto& observer = theObserver();
    if (!observer) return true;
    return callOwner(window, [&]() -> LRESULT {
               observer(handle, number);
               return 1;
           }) != 0;
}

}  // namespace platform
