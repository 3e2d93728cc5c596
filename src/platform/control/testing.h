#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/message_box.h"
#include "desktop/screen_picture.h"
#include "kernel/clock.h"

/// Controls for tests: input, message boxes, desktop, registry file, pictures. An object undoes its work at its end; at
/// most one of each kind exists at a time.
namespace platform::testing {

using platform::HandDrivenClock;
using platform::ScreenPicture;

/// Keeps message boxes off the screen and remembers them.
class MessageBoxRecorder {
public:
    using Box = MessageBox;
    enum class Answers {
        AtOnce,
        OnRequest,  // MessageBoxA blocks its caller until answerAll()
    };
    explicit MessageBoxRecorder(Answers answers = Answers::AtOnce);
    /// Answers the open boxes.
    ~MessageBoxRecorder();
    MessageBoxRecorder(const MessageBoxRecorder&) = delete;
    MessageBoxRecorder& operator=(const MessageBoxRecorder&) = delete;

    /// The boxes so far, in their order.
    [[nodiscard]] std::vector<MessageBox> boxes() const;
    /// Answers the open boxes and all later ones.
    void answerAll();

private:
    struct Recording;  // shared with the threads that wait for an answer
    std::shared_ptr<Recording> recording_;
};

/// A desktop of another size for GetSystemMetrics and the devices.
class DesktopSize {
public:
    DesktopSize(int width, int height);
    ~DesktopSize();
    DesktopSize(const DesktopSize&) = delete;
    DesktopSize& operator=(const DesktopSize&) = delete;
};

/// Keeps the registry in another file.
class RegistryFile {
public:
    explicit RegistryFile(std::filesystem::path path);
    ~RegistryFile();
    RegistryFile(const RegistryFile&) = delete;
    RegistryFile& operator=(const RegistryFile&) = delete;
};

/// Presses or releases a key as if the player did, by the names scripts use ("Left", "Space", "Z", "Keypad 5"); the
/// window gets its message on the next GetMessageA. Alt counts as held between its own press and release. False when no
/// key has that name. Only on the window's thread.
bool injectKey(HWND window, std::string_view name, bool down);
/// A mouse event at a point of the picture. `button` 0 moves, 1 left, 2 middle, 3 right; `clicks` counts presses of a
/// fast series from 1. Only on the window's thread.
void injectMouse(HWND window, int button, bool down, int clicks, int x, int y);
/// The system asks for the window's contents. Only on the window's thread.
void injectExpose(HWND window);
/// The user asks to close the window. Only on the window's thread.
void injectClose(HWND window);

/// Pictures handed to the window since it was created, whether or not they reached the screen; 0 when it is gone.
[[nodiscard]] std::uint64_t presentedPictures(HWND window);
/// The picture last handed to the window. Empty before the first picture.
[[nodiscard]] ScreenPicture lastPicture(HWND window);
/// What the screen shows of the window, read back. Only on the window's thread.
[[nodiscard]] ScreenPicture screen(HWND window);
/// Makes the window's pixels black, as a window that passes over it would. Only on the window's thread.
void blankScreen(HWND window);
/// The client area in pixels of the desktop. Only on the window's thread.
void resizeWindow(HWND window, int width, int height);
[[nodiscard]] std::optional<POINT> windowSize(HWND window);

}  // namespace platform::testing
