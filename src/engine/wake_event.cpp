#include "wake_event.h"

namespace grub {

Event::Event(bool manualReset, bool initiallySet)
    : handle_(CreateEventA(nullptr, manualReset ? TRUE : FALSE, initiallySet ? TRUE : FALSE, nullptr)) {}

Event::~Event() { CloseHandle(handle_); }

bool Event::set() { return SetEvent(handle_) != FALSE; }

bool Event::reset() { return ResetEvent(handle_) != FALSE; }

bool Event::wait(DWORD milliseconds) { return WaitForSingleObject(handle_, milliseconds) == WAIT_OBJECT_0; }

}  // namespace grub
