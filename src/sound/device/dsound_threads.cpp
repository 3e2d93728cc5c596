// The streaming threads of the sound device: how they start, what they wait for, how they end.
#include <algorithm>

#include "dsound_device.h"

namespace grub {

// A slot's event lets one thread through at a time, the last one, which ends the threads, lets all through.
bool DSoundDevice::createEvents() {
    for (std::size_t i = 0; i < events_.size(); ++i) {
        events_[i].reset(CreateEventA(nullptr, i == kStopEvent ? TRUE : FALSE, FALSE, nullptr));
        waitedFor_[i] = events_[i].get();
    }
    return std::ranges::all_of(events_, [](const OwnedHandle& event) { return event != nullptr; });
}

bool DSoundDevice::startThreads() {
    for (OwnedHandle& thread : threads_) {
        thread.reset(CreateThread(nullptr, 0, streamOn, this, 0, nullptr));
        if (!thread) return false;
        SetThreadPriority(thread.get(), THREAD_PRIORITY_HIGHEST);
    }
    return true;
}

void DSoundDevice::endThreads() {
    const bool told = events_[kStopEvent] && SetEvent(events_[kStopEvent].get()) != FALSE;
    for (OwnedHandle& thread : threads_) {
        if (!thread) continue;
        if (told) {
            WaitForSingleObject(thread.get(), INFINITE);
        } else {
            TerminateThread(thread.get(), 0xFFFFFFFF);
        }
        thread.reset();
    }
}

DWORD WINAPI DSoundDevice::streamOn(LPVOID device) {
    static_cast<DSoundDevice*>(device)->stream();
    return 0;
}

void DSoundDevice::stream() {
    while (true) {
        const DWORD woken =
            WaitForMultipleObjects(static_cast<DWORD>(waitedFor_.size()), waitedFor_.data(), FALSE, INFINITE) -
            WAIT_OBJECT_0;
        if (woken == kStopEvent) return;
        if (woken < kStopEvent) slots_->refill(woken);
    }
}

}  // namespace grub
