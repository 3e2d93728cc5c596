#pragma once

#include <windows.h>

#include <cstdlib>
#include <memory>

#include "d3d_renderer.h"
#include "desktop/video.h"
#include "engine_services.h"
#include "renderer.h"

namespace grub {

/// The game's renderer on a window that no one sees, while it lives. `Content` is made when the renderer is there and
/// goes before it; its `draw(Renderer&)` draws one frame. A benchmark ends when there is no renderer.
template <class Content>
class GameScreen {
public:
    GameScreen() {
        platform::useDummyDrivers();
        WNDCLASSEXA windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = DefWindowProcA;
        windowClass.lpszClassName = "bench";
        RegisterClassExA(&windowClass);
        window_ = CreateWindowExA(0, "bench", "bench", 0, 0, 0, kScreenWidth, kScreenHeight, nullptr, nullptr, nullptr,
                                  nullptr);
        renderer_ = std::make_unique<D3DRenderer>(window_, kScreenWidth, kScreenHeight, false);
        EngineServices::installRenderer(renderer_.get());
        if (!renderer_->init()) std::abort();
        content_ = std::make_unique<Content>();
    }
    GameScreen(const GameScreen&) = delete;
    GameScreen& operator=(const GameScreen&) = delete;
    ~GameScreen() {
        content_.reset();
        EngineServices::installRenderer(nullptr);
        renderer_.reset();
        DestroyWindow(window_);
    }

    /// One frame, handed to the window.
    void draw() {
        renderer_->beginFrame();
        content_->draw(*renderer_);
        renderer_->endFrame();
    }

private:
    HWND window_ = nullptr;
    std::unique_ptr<D3DRenderer> renderer_;
    std::unique_ptr<Content> content_;
};

}  // namespace grub
