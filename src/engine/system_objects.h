#pragma once

#include <windows.h>

#include <unknwn.h>

#include <memory>

namespace grub {

/// A critical section as a value. The thread that holds it may enter it again. `lock` and `unlock` serve
/// std::lock_guard.
class CriticalSection {
public:
    CriticalSection() { InitializeCriticalSection(&section_); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;
    ~CriticalSection() { DeleteCriticalSection(&section_); }

    /// Waits until no other thread holds it.
    void lock() { EnterCriticalSection(&section_); }
    /// Leaves once. Another thread can enter when every `lock` has had its `unlock`.
    void unlock() { LeaveCriticalSection(&section_); }

private:
    CRITICAL_SECTION section_;
};

/// Owns one unnamed event of the system. Every operation may come from any thread; no thread may wait when it is
/// destroyed.
class Event {
public:
    /// A manual-reset event stays set until `reset`. An automatic one lets one waiting thread through and then resets
    /// itself.
    Event(bool manualReset, bool initiallySet)
        : handle_(CreateEventA(nullptr, manualReset ? TRUE : FALSE, initiallySet ? TRUE : FALSE, nullptr)) {}
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event() { CloseHandle(handle_); }

    /// False when the system refused, as for `reset`.
    bool set() { return SetEvent(handle_) != FALSE; }
    bool reset() { return ResetEvent(handle_) != FALSE; }
    /// Waits for at most `milliseconds` (INFINITE: without limit). True exactly when the event was set.
    bool wait(DWORD milliseconds) { return WaitForSingleObject(handle_, milliseconds) == WAIT_OBJECT_0; }

private:
    HANDLE handle_;
};

/// Releases a reference where std::unique_ptr would delete.
struct ComRelease {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};

/// Owns one reference of a reference-counted interface of DirectX.
template <class Interface>
using ComPtr = std::unique_ptr<Interface, ComRelease>;

/// Adds a reference to `object` and returns its owner.
template <class Interface>
ComPtr<Interface> addReference(Interface& object) {
    object.AddRef();
    return ComPtr<Interface>(&object);
}

}  // namespace grub
