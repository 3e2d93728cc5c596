#pragma once

#include <memory>

#include <unknwn.h>

namespace grub {

/// Gives a reference back instead of deleting.
struct ComRelease {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};

/// Owns one reference of a reference counted interface.
template <class Interface>
using ComPtr = std::unique_ptr<Interface, ComRelease>;

/// One more reference, of its own.
template <class Interface>
ComPtr<Interface> addReference(Interface& object) {
    object.AddRef();
    return ComPtr<Interface>(&object);
}

}  // namespace grub
