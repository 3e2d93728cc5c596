#pragma once

#include <windows.h>

namespace grub {

/// Owns one unnamed event of the system. Every operation may come from any thread.
class Event {
public:
    /// A manual-reset event stays set until `reset`; any other lets one waiting thread through and resets itself.
    Event(bool manualReset, bool initiallySet);
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    /// Nobody may be waiting any more.
    ~Event();

    /// Both are false only when the system refused.
    bool set();
    bool reset();
    /// Waits for at most `milliseconds` (INFINITE: without limit). True exactly when the event was set.
    bool wait(DWORD milliseconds);

private:
    HANDLE handle_;
};

}  // namespace grub
