#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "picture_area.h"
#include "testing.h"

struct SDL_Renderer;
struct SDL_Texture;
struct SDL_Window;

namespace platform {

/// Carries finished pictures of any thread to the screen of one window. The latest wins; the last one stays, since the
/// system may ask for it again at any time.
class Presenter {
public:
    Presenter() = default;
    ~Presenter();
    Presenter(const Presenter&) = delete;
    Presenter& operator=(const Presenter&) = delete;

    /// Copies a picture of 0xXXRRGGBB rows; any thread. Its number, from 1.
    std::uint64_t hand(const std::uint32_t* xrgb, int width, int height, int strideBytes);
    /// How many pictures were handed over; any thread.
    [[nodiscard]] std::uint64_t count() const;
    /// A copy of the latest picture; any thread.
    [[nodiscard]] testing::Picture latest() const;

    /// From here on: the window's thread only. Shows the latest picture unless it has been shown already.
    void showFresh(SDL_Window& window);
    /// Shows the latest picture again.
    void showAgain(SDL_Window& window);
    /// Where the picture stands in the window; an 800 x 600 one as long as there is none.
    [[nodiscard]] PictureArea area(SDL_Window& window) const;
    /// What the window's pixels are now.
    [[nodiscard]] testing::Picture readBack();
    /// Overwrites the window's pixels with black.
    void blacken();
    /// Gives up everything that belongs to the window.
    void close();

private:
    bool takeFresh();
    bool openTexture();
    void show(SDL_Window& window);

    struct TextureCloser {
        void operator()(SDL_Texture* texture) const;
    };

    mutable std::mutex lock_;    // guards the four below
    testing::Picture arriving_;  // the latest, when fresh
    testing::Picture shown_;     // changes hands under the lock, is read without it by the window's thread
    bool fresh_ = false;
    std::uint64_t count_ = 0;

    SDL_Renderer* renderer_ = nullptr;  // the window's; null until a picture is shown
    std::unique_ptr<SDL_Texture, TextureCloser> texture_;
    int textureWidth_ = 0;
    int textureHeight_ = 0;
};

}  // namespace platform
