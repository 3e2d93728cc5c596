#pragma once

#include <windows.h>

#include <functional>
#include <utility>

/// An event that closes itself.
struct ScopedEvent {
    explicit ScopedEvent(bool manualReset = false, bool initiallySet = false)
        : handle(CreateEventA(nullptr, manualReset ? TRUE : FALSE, initiallySet ? TRUE : FALSE, nullptr)) {}
    ~ScopedEvent() { CloseHandle(handle); }
    ScopedEvent(const ScopedEvent&) = delete;
    ScopedEvent& operator=(const ScopedEvent&) = delete;

    HANDLE handle;
};

/// A thread made the way the game makes them; its destructor joins it.
class GameThread {
public:
    explicit GameThread(std::function<void()> work) : work_(std::move(work)) {
        handle_ = CreateThread(nullptr, 0, run, this, 0, nullptr);
    }
    ~GameThread() {
        join();
        CloseHandle(handle_);
    }
    GameThread(const GameThread&) = delete;
    GameThread& operator=(const GameThread&) = delete;

    /// Waits for the thread's end, serving the caller's window meanwhile.
    void join() const { WaitForSingleObject(handle_, INFINITE); }
    [[nodiscard]] bool hasEnded() const { return WaitForSingleObject(handle_, 0) == WAIT_OBJECT_0; }

private:
    static DWORD WINAPI run(LPVOID self) {
        static_cast<GameThread*>(self)->work_();
        return 0;
    }

    std::function<void()> work_;
    HANDLE handle_ = nullptr;
};
