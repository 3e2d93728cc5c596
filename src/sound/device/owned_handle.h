#pragma once

#include <memory>

#include <windows.h>

namespace grub {

/// Gives a handle up.
struct HandleCloser {
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};

/// Owns the handle of an event or a thread; null when there is none.
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

}  // namespace grub
