#pragma once

#include <atomic>
#include <memory>

#include <unknwn.h>

namespace platform {

/// Counts the references of an object that implements `Interface`; it starts with its creator's one.
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
