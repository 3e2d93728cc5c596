#pragma once

#include <windows.h>

#include <memory>

/// Everything a HANDLE can stand for, and the table of handles.
namespace platform {

/// What stands behind a handle. Calls in progress share it, so closing a handle never pulls it from under them.
class KernelObject {
public:
    KernelObject() = default;
    virtual ~KernelObject() = default;
    KernelObject(const KernelObject&) = delete;
    KernelObject& operator=(const KernelObject&) = delete;

    /// Ends the handle's use. False when the system reports a late failure.
    virtual bool close() { return true; }
};

/// Something that can be waited for. Its state is guarded by the wait lock.
class Waitable : public KernelObject {
public:
    Waitable(bool manualReset, bool signalled) : manualReset_(manualReset), signalled_(signalled) {}

    /// Releases all waits and stays set, or, with auto-reset, releases one wait or stays set for the next.
    void set();
    void reset() { signalled_ = false; }
    /// Whether a wait ends at once; with auto-reset this uses the signal up.
    [[nodiscard]] bool take();
    /// Whether a wait would end at once.
    [[nodiscard]] bool isSet() const { return signalled_; }
    /// Whether the last signal is used up and the thread that used it waits again, or has ended.
    [[nodiscard]] bool isAnswered() const;

private:
    bool manualReset_;
    bool signalled_;
    DWORD takenBy_ = 0;  // the thread that used the last signal, 0 for none
};

/// A new handle for an object.
[[nodiscard]] HANDLE newHandle(std::shared_ptr<KernelObject> object);
/// The object behind a handle, null for one that is closed or never was.
[[nodiscard]] std::shared_ptr<KernelObject> objectOf(HANDLE handle);

/// The same for one kind of object; null when it is of another kind.
template <class T>
[[nodiscard]] std::shared_ptr<T> objectOf(HANDLE handle) {
    return std::dynamic_pointer_cast<T>(objectOf(handle));
}

}  // namespace platform
