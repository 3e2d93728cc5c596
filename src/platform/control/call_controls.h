#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include <d3d8.h>
#include <dsound.h>

#include "kernel/calls.h"

/// How a test makes calls of the layer fail, counts them, and looks into the devices.
namespace platform::testing {

using platform::Call;

/// A call that was announced, and its result: S_OK, or the failure that a control chose.
struct CallRecord {
    Call function;
    DWORD first;  // the two arguments that tell most
    DWORD second;
    HRESULT result;
};

/// Counts the calls of the layer and makes some fail, from construction to destruction. Several controls may exist at
/// a time; each keeps its own record, and the first one that refuses a call decides. Any thread.
class CallControls {
public:
    CallControls();
    ~CallControls();
    CallControls(const CallControls&) = delete;
    CallControls& operator=(const CallControls&) = delete;

    /// The call succeeds `successes` more times; from then on it fails with `result` and does nothing. S_OK lets it
    /// work again.
    void fail(Call call, HRESULT result = E_FAIL, int successes = 0);

    /// The calls since construction or `forgetCalls`, in their order.
    [[nodiscard]] std::vector<CallRecord> calls() const;
    [[nodiscard]] std::size_t count(Call call) const;
    void forgetCalls();

protected:
    /// Asks `observer` for the result of each call that `fail` lets through. It runs under the lock of all controls.
    void observe(std::function<HRESULT(Call call, DWORD first)> observer);

private:
    struct Fault {
        HRESULT result;
        int successes;
    };
    static HRESULT announced(Call call, DWORD first, DWORD second);
    HRESULT answer(Call call, DWORD first);

    std::map<Call, Fault> faults_;
    std::function<HRESULT(Call, DWORD)> observer_;
    std::vector<CallRecord> calls_;
};

/// Makes one call fail while the object lives, after `successes` calls that succeed.
class FailingCall : private CallControls {
public:
    explicit FailingCall(Call call, int successes = 0) { fail(call, E_FAIL, successes); }
};

/// Makes the Direct3D device misbehave.
class DeviceControls : public CallControls {
public:
    DeviceControls();
    ~DeviceControls();
    DeviceControls(const DeviceControls&) = delete;
    DeviceControls& operator=(const DeviceControls&) = delete;

    /// Questions for this format of a back buffer or of a texture get the answer `result`.
    void refuse(D3DFORMAT format, HRESULT result);
    /// The device is lost: `Present` says so, the next `tests` calls of `TestCooperativeLevel` too, later ones say that
    /// a reset would help, and a `Reset` brings the device back.
    void loseDevice(int tests);
    /// The picture that the calling thread's window was given last, pixels 0x00RRGGBB, rows top-down; empty when there
    /// was none.
    [[nodiscard]] static std::vector<std::uint32_t> frame();

private:
    HRESULT answer(Call call, DWORD first);

    std::map<DWORD, HRESULT> refusedFormats_;
    bool lost_ = false;
    int testsLeft_ = 0;  // until a reset would help
};

/// Makes the DirectSound card misbehave.
class SoundControls : public CallControls {
public:
    /// The memory of all present buffers is lost: silent, and refused by Lock and Play until Restore. Cursors go on.
    static void loseBuffers();
    /// How many position events were set since construction.
    [[nodiscard]] std::size_t notifications() const { return count(Call::PositionEvent); }
};

/// What a sound buffer does at one moment. Sizes and positions in bytes, volume and pan in hundredths of a decibel.
struct VoiceState {
    DWORD bytes;
    DWORD position;
    LONG volume;
    LONG pan;
    bool playing;
    bool looping;
    bool lost;
};

/// The sound buffers of the open card in the order of their creation; empty when no card is open.
[[nodiscard]] std::vector<VoiceState> voices();
/// A copy of the samples that a sound buffer holds now.
[[nodiscard]] std::vector<BYTE> heldSamples(IDirectSoundBuffer& buffer);

}  // namespace platform::testing
