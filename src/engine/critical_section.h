#pragma once

#include <windows.h>

namespace grub {

/// A critical section as a value; one thread may enter it again. `lock` and `unlock` serve std::lock_guard.
class CriticalSection {
public:
    /// Nobody is inside.
    CriticalSection() { InitializeCriticalSection(&section_); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;
    ~CriticalSection() { DeleteCriticalSection(&section_); }

    /// Waits until no other thread is inside.
    void lock() { EnterCriticalSection(&section_); }
    /// Leaves once; the section is free when every `lock` has its `unlock`.
    void unlock() { LeaveCriticalSection(&section_); }

private:
    CRITICAL_SECTION section_;
};

}  // namespace grub
