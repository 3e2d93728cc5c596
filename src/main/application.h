#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "application_base.h"
#include "d3d_renderer.h"

namespace grub {

/// The program around the scenes: its window and services on the main thread, the scenes on a thread of their own.
/// Only the main thread uses it.
class Application final : public ApplicationBase {
public:
    /// Creates the window (hidden) and, if that worked, the game thread (suspended). `width` x `height` are the pixels
    /// of the picture. Without `icon` (null) the window takes the system's own.
    Application(HINSTANCE instance, std::uint16_t width, std::uint16_t height, const char* title, bool windowed,
                HICON icon);
    /// Waits until the game thread has ended, unless it never ran. Does not destroy the scenes.
    ~Application() override;

    /// Shows the window, creates the services, runs the scenes on the game thread and pumps messages until the window
    /// is gone. False without a window, without a game thread, with an unknown start scene (the services then stay
    /// installed) or when pumping failed. Ends the process with exit code 1 when the renderer cannot start.
    bool run(std::uint32_t startSceneId) override;
    /// Resets the device for the other mode. True as well when the mode is already right.
    bool setWindowed(bool windowed) override;

    /// Null when the window could not be created.
    [[nodiscard]] HWND window() const { return window_; }
    /// Null before `run`.
    [[nodiscard]] D3DRenderer* renderer() const { return renderer_.get(); }

private:
    static DWORD WINAPI gameThread(void* application);

    void createServices();
    [[nodiscard]] bool resumeGameThread();

    const std::uint16_t width_;
    const std::uint16_t height_;
    const bool windowed_;
    const HWND window_;
    HANDLE gameThread_ = nullptr;
    bool gameThreadRuns_ = false;
    std::unique_ptr<D3DRenderer> renderer_;
};

}  // namespace grub
