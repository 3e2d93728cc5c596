#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>

/// How a test makes a call of the layer fail. Every call that can be refused announces itself here before it acts.
namespace platform {

/// What can be refused: calls of the system, of Direct3D and of DirectSound, and two abilities of the display adapter.
enum class Call : std::uint8_t {
    // The system
    RegisterClass,
    CreateWindow,
    FullScreen,
    CreateThread,
    ResumeThread,
    CreateFile,
    WriteFile,
    FlushFile,
    MoveFile,
    DeleteFile,
    RegistryWrite,
    // Direct3D
    Direct3DCreate8,
    GetAdapterDisplayMode,
    GetDeviceCaps,
    OblongTextures,    // asked by GetDeviceCaps: textures that are not square
    VertexProcessing,  // asked by GetDeviceCaps
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
    // DirectSound
    DirectSoundCreate8,
    CreateSoundBuffer,
    DuplicateSoundBuffer,
    SetCooperativeLevel,
    Compact,
    QueryInterface,
    GetStatus,
    GetCurrentPosition,
    Lock,
    Unlock,
    Play,
    Stop,
    SetCurrentPosition,
    SetVolume,
    SetPan,
    Restore,
    SetNotificationPositions,
    PositionEvent,  // an event of SetNotificationPositions is about to be set
};

/// Hears of every call, on the thread that makes it, with the two arguments that tell most (a format, a state and its
/// value, a size). Returns S_OK, or the negative result with which the call has to fail.
using CallObserver = HRESULT (*)(Call call, DWORD first, DWORD second);

/// The observer; null outside of tests (control/call_controls.h sets it).
inline std::atomic<CallObserver> callObserver{nullptr};

/// Announces a call. Returns S_OK, or the result with which the call has to fail without doing anything.
[[nodiscard]] inline HRESULT refusal(Call call, DWORD first = 0, DWORD second = 0) {
    const CallObserver observer = callObserver.load(std::memory_order_acquire);
    return observer == nullptr ? S_OK : observer(call, first, second);
}

/// The same for calls whose failure has no code.
[[nodiscard]] inline bool isRefused(Call call) { return FAILED(refusal(call)); }

}  // namespace platform
