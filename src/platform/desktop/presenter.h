#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "desktop/screen_picture.h"

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

    /// Copies a picture of 0xXXRRGGBB rows; any thread. Returns its number, from 1.
    std::uint64_t hand(const std::uint32_t* xrgb, int width, int height, int strideBytes);
    /// How many pictures came; any thread.
    [[nodiscard]] std::uint64_t count() const;
    /// A copy of the latest picture; any thread.
    [[nodiscard]] ScreenPicture latest() const;

    /// From here on: the window's thread only. Shows the latest picture if it is new.
    void showFresh(SDL_Window& window);
    /// Shows the latest picture again.
    void showAgain(SDL_Window& window);
    /// Where the picture stands in the window; the whole window before the first picture.
    [[nodiscard]] PictureArea area(SDL_Window& window) const;
    /// What the window's pixels are now.
    [[nodiscard]] ScreenPicture readBack();
    void blacken();
    /// Gives up the texture and forgets the renderer. Before the window's end.
    void close();

private:
    bool takeFresh();
    bool openTexture();
    void show(SDL_Window& window);

    struct TextureCloser {
        void operator()(SDL_Texture* texture) const;
    };

    mutable std::mutex lock_;  // guards the four below
    ScreenPicture arriving_;   // the latest, when fresh
    ScreenPicture shown_;      // changes hands under the lock, is read without it by the window's thread
    bool fresh_ = false;
    std::uint64_t count_ = 0;

    SDL_Renderer* renderer_ = nullptr;  // the window's; null until a picture is shown
    std::unique_ptr<SDL_Texture, TextureCloser> texture_;
    int textureWidth_ = 0;
    int textureHeight_ = 0;
};

/// Hands a finished picture to the window: rows of `strideBytes`, pixels 0xXXRRGGBB. The pixels are copied; the
/// window's thread shows the latest picture at its next turn, so the caller never waits for the screen. Any thread.
/// False when the window is gone. With an observer the call returns after the observer.
bool showFrame(HWND window, const std::uint32_t* xrgb, int width, int height, int strideBytes);

/// Hears of every picture handed to a window, by number from 1, on the window's thread, while the thread that handed it
/// over waits.
using PictureObserver = std::function<void(HWND window, std::uint64_t number)>;
/// Sets the one observer; an empty one ends it. Only while no pictures are handed over.
void observePictures(PictureObserver observer);

}  // namespace platform
