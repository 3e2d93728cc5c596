#pragma once

#include <atomic>
#include <cstdint>
#include <span>

#include <d3d8.h>

#include "device_function.h"

namespace platform {

/// Sees every call of the Direct3D layer before it acts. Called from whatever thread makes the call.
class DeviceWatch {
public:
    DeviceWatch() = default;
    DeviceWatch(const DeviceWatch&) = delete;
    DeviceWatch& operator=(const DeviceWatch&) = delete;
    virtual ~DeviceWatch() = default;

    /// A negative answer becomes the result of the call, which then does nothing. `first` and `second` are the two
    /// arguments that tell most about the call.
    virtual HRESULT called(DeviceFunction function, DWORD first, DWORD second) = 0;
    /// May take abilities away.
    virtual void limit(D3DCAPS8& caps) = 0;
    /// A finished picture, 0xXXRRGGBB, rows top-down.
    virtual void presented(std::span<const std::uint32_t> pixels) = 0;
};

/// The watch of this moment, null outside of tests.
inline std::atomic<DeviceWatch*> deviceWatch{nullptr};

/// Tells the watch of a call; negative when the call has to fail.
inline HRESULT announceCall(DeviceFunction function, DWORD first = 0, DWORD second = 0) {
    DeviceWatch* const watch = deviceWatch.load(std::memory_order_acquire);
    return watch == nullptr ? D3D_OK : watch->called(function, first, second);
}

}  // namespace platform
