#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

/// The functions of the Direct3D layer that a test can count and make fail.
enum class DeviceFunction : std::uint8_t {
    Direct3DCreate8,
    GetAdapterDisplayMode,
    GetDeviceCaps,
    CheckDeviceType,
    CheckDeviceFormat,
    CreateDevice,
    TestCooperativeLevel,
    Reset,
    Present,
    CreateTexture,
    CreateVertexBuffer,
    BeginScene,
    EndScene,
    Clear,
    SetRenderState,
    SetTexture,
    SetTextureStageState,
    DrawPrimitive,
    SetVertexShader,
    SetStreamSource,
    LockTexture,
    UnlockTexture,
    LockVertices,
    UnlockVertices,
};

/// How many there are.
inline constexpr std::size_t kDeviceFunctions = static_cast<std::size_t>(DeviceFunction::UnlockVertices) + 1;

}  // namespace platform
