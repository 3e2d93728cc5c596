#pragma once

#include <windows.h>

#include "kernel/objects.h"

namespace platform {

/// Something that can be waited for. Its state is guarded by the wait lock.
class Waitable : public KernelObject {
public:
    Waitable(bool manualReset, bool signalled) : manualReset_(manualReset), signalled_(signalled) {}

    /// Releases all waits and stays set, or, with auto-reset, releases one wait or stays set for the next.
    void set();
    void reset() { signalled_ = false; }
    /// Whether a wait ends at once; with auto-reset this uses the signal up.
    [[nodiscard]] bool take();
    [[nodiscard]] bool isSet() const { return signalled_; }
    /// Whether a thread took the last signal and now waits again or has ended.
    [[nodiscard]] bool isAnswered() const;

private:
    bool manualReset_;
    bool signalled_;
    DWORD takenBy_ = 0;  // the thread that took the last signal, or 0
};

/// Waits for the object without end and serves the windows of the calling thread meanwhile.
void waitFor(Waitable& object);

}  // namespace platform
