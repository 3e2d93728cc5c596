#include "clock.h"
#include "handles.h"
#include "waits.h"

namespace platform {

void Waitable::set() {
    if (manualReset_) {
        signalled_ = true;
        releaseAll(this);
    } else if (!releaseOne(this)) {
        signalled_ = true;
    }
}

bool Waitable::take() {
    if (!signalled_) return false;
    if (!manualReset_) signalled_ = false;
    return true;
}

namespace {

/// An event as CreateEventA makes it; a thread's end is no event and cannot be set.
class EventObject final : public Waitable {
public:
    using Waitable::Waitable;
};

BOOL changeEvent(HANDLE event, void (Waitable::*change)()) {
    const auto object = objectOf<EventObject>(event);
    if (!object) return FALSE;
    const WaitGuard lock(waitLock());
    ((*object).*change)();
    return TRUE;
}

}  // namespace
}  // namespace platform

HANDLE CreateEventA(void* /*attributes*/, BOOL manualReset, BOOL initiallySet, LPCSTR /*name*/) {
    return platform::newHandle(std::make_shared<platform::EventObject>(manualReset != FALSE, initiallySet != FALSE));
}

BOOL SetEvent(HANDLE event) { return platform::changeEvent(event, &platform::Waitable::set); }

BOOL ResetEvent(HANDLE event) { return platform::changeEvent(event, &platform::Waitable::reset); }

DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds) {
    const auto waitable = platform::objectOf<platform::Waitable>(object);
    if (!waitable) return WAIT_FAILED;
    platform::WaitGuard lock(platform::waitLock());
    if (waitable->take()) return WAIT_OBJECT_0;
    if (milliseconds == 0) return WAIT_TIMEOUT;
    const auto deadline = platform::deadlineAfter(milliseconds);
    return platform::sleepServing(lock, waitable.get(), deadline) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}
