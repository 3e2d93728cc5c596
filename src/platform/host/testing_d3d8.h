#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <d3d8.h>

#include "device_function.h"

namespace platform::testing {

/// A call of the Direct3D layer: the two arguments that tell most (a format, a state and its value, a size ...), and
/// whether it was let through.
struct DeviceCall {
    DeviceFunction function;
    DWORD first;
    DWORD second;
    HRESULT result;
};

/// Watches the Direct3D layer and makes it misbehave, from construction to destruction; at most one exists at a time.
/// Destroy it when no other thread is inside the layer. Its functions may be called from any thread.
class DeviceControls {
public:
    DeviceControls();
    ~DeviceControls();
    DeviceControls(const DeviceControls&) = delete;
    DeviceControls& operator=(const DeviceControls&) = delete;

    /// From now on the function fails with `result` and does nothing; D3D_OK lets it work again.
    void fail(DeviceFunction function, HRESULT result);
    /// Questions for this back-buffer or texture format are answered with `result`.
    void refuse(D3DFORMAT format, HRESULT result);
    /// Reported capabilities: square textures only; no vertex processing.
    void allowSquareTexturesOnly();
    void removeVertexProcessing();
    /// The device is lost: `Present` says so, the next `tests` calls of `TestCooperativeLevel` too, later ones say that
    /// a reset would help, and a `Reset` brings the device back.
    void loseDevice(int tests);

    /// The calls since construction or `forgetCalls`, in their order, and how many there were of one function.
    [[nodiscard]] std::vector<DeviceCall> calls() const;
    [[nodiscard]] std::size_t count(DeviceFunction function) const;
    void forgetCalls();
    /// The picture presented last, 800 x 600 pixels 0x00RRGGBB, rows top-down; empty when there was none.
    [[nodiscard]] std::vector<std::uint32_t> frame() const;

private:
    class Watch;
    std::unique_ptr<Watch> watch_;
};

}  // namespace platform::testing
