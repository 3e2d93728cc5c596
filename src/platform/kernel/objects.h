#pragma once

#include <windows.h>

#include <atomic>
#include <memory>

#include <unknwn.h>

/// Objects of the layer as the program holds them: by handle, or by counted reference.
namespace platform {

/// What stands behind a handle. Calls in progress share it, so closing a handle never pulls it from under them.
class KernelObject {
public:
    KernelObject() = default;
    virtual ~KernelObject() = default;
    KernelObject(const KernelObject&) = delete;
    KernelObject& operator=(const KernelObject&) = delete;

    /// Called when the handle is closed. False when the system reports a late failure.
    virtual bool close() { return true; }
};

/// A new handle for an object.
[[nodiscard]] HANDLE newHandle(std::shared_ptr<KernelObject> object);
/// The object behind a handle; null when the handle is closed or was never given.
[[nodiscard]] std::shared_ptr<KernelObject> objectOf(HANDLE handle);

/// The same for one kind of object; null for another kind.
template <class T>
[[nodiscard]] std::shared_ptr<T> objectOf(HANDLE handle) {
    return std::dynamic_pointer_cast<T>(objectOf(handle));
}

/// Counts the references of an object that implements `Interface`. Its creator holds the first one.
template <class Interface>
class ComObject : public Interface {
public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject() = default;

    ULONG AddRef() override { return references_.fetch_add(1, std::memory_order_relaxed) + 1; }

    ULONG Release() override {
        const ULONG left = references_.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (left == 0) delete this;
        return left;
    }

protected:
    ComObject() = default;

private:
    std::atomic<ULONG> references_{1};
};

/// Gives a reference back instead of deleting.
struct ReleaseReference {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};

/// Owns one reference.
template <class Object>
using ObjectRef = std::unique_ptr<Object, ReleaseReference>;

/// One more reference to `object`, which may be null.
template <class Object>
ObjectRef<Object> shareObject(Object* object) {
    if (object != nullptr) object->AddRef();
    return ObjectRef<Object>(object);
}

}  // namespace platform
