#pragma once

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Controls for tests and scripts. The RAII ones undo what they did; at most one of each kind exists at a time.
namespace platform::testing {

/// Replaces the clock by one that tests move; make it before other threads wait. It starts at 0 ticks of 10 MHz. Sleep
/// and finite waits end when this clock reaches their time, or with the clock. Threads made by CreateThread and the
/// thread that made the clock count as participants.
class HandDrivenClock {
public:
    enum class Moves {
        WhenAllWait,  // jumps to the earliest end of a wait as soon as every participant waits (GetMessageA is a wait)
        ByHand,       // moves by advance() only
    };
    explicit HandDrivenClock(Moves moves = Moves::WhenAllWait);
    ~HandDrivenClock();
    HandDrivenClock(const HandDrivenClock&) = delete;
    HandDrivenClock& operator=(const HandDrivenClock&) = delete;

    /// Moves the clock forward and wakes the waits whose time has come.
    void advance(std::chrono::milliseconds time);
    /// Waits (in real time) until every other participant waits for something that has not come.
    void settle() const;
    /// The clock's time, at 10 MHz, without counting as a reading.
    [[nodiscard]] std::chrono::milliseconds now() const;
    /// What QueryPerformanceFrequency reports; the counter is scaled accordingly.
    void setFrequency(std::int64_t ticksPerSecond);
    /// Lets the counter read `ticks` now.
    void setCounter(std::int64_t ticks);
    /// Every reading of the counter moves it by `ticks` afterwards.
    void addAtEachReading(std::int64_t ticks);
};

/// Keeps message boxes off the screen and remembers them.
class MessageBoxRecorder {
public:
    struct Box {
        std::string text;
        std::string caption;
        UINT style;
    };
    enum class Answers {
        AtOnce,
        OnRequest,  // MessageBoxA blocks its caller until answerAll()
    };
    explicit MessageBoxRecorder(Answers answers = Answers::AtOnce);
    /// Answers what is still open.
    ~MessageBoxRecorder();
    MessageBoxRecorder(const MessageBoxRecorder&) = delete;
    MessageBoxRecorder& operator=(const MessageBoxRecorder&) = delete;

    /// The boxes so far, in the order they were asked for.
    [[nodiscard]] std::vector<Box> boxes() const;
    /// Answers the open boxes and all later ones.
    void answerAll();
};

/// A call that fails while the object lives, as if the system refused.
enum class Call { RegisterClass, CreateWindow, CreateThread, ResumeThread, WriteFile, FlushFile, RegistryWrite };
class FailingCall {
public:
    /// The call succeeds `successes` more times before it fails.
    explicit FailingCall(Call call, int successes = 0);
    ~FailingCall();
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;

private:
    Call call_;
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

/// A picture in memory, pixels 0xFFRRGGBB.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};
/// Pictures handed to the window since it was created, whether or not they reached the screen; 0 when it is gone.
[[nodiscard]] std::uint64_t presentedPictures(HWND window);
/// The picture last handed to the window. Empty when there is none.
[[nodiscard]] Picture lastPicture(HWND window);
/// What the screen shows of the window, read back. Only on the window's thread.
[[nodiscard]] Picture screen(HWND window);
/// Blackens the window's pixels behind its back, as another window passing over it would. Only on the window's thread.
void blankScreen(HWND window);
/// The client area in pixels of the desktop. Only on the window's thread.
void resizeWindow(HWND window, int width, int height);
[[nodiscard]] std::optional<POINT> windowSize(HWND window);

}  // namespace platform::testing
