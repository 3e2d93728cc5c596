#include "kernel/events.h"

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <utility>

#include "kernel/clock.h"
#include "kernel/waits.h"

namespace platform {

void Waitable::set() {
    if (manualReset_) {
        signalled_ = true;
        releaseAll(this);
        return;
    }
    const DWORD taker = releaseOne(this);
    if (taker == 0) {
        signalled_ = true;
    } else {
        takenBy_ = taker;
    }
}

bool Waitable::take() {
    if (!signalled_) return false;
    if (!manualReset_) signalled_ = false;
    takenBy_ = GetCurrentThreadId();
    return true;
}

bool Waitable::isAnswered() const { return !signalled_ && !isBusy(takenBy_); }

void waitFor(Waitable& object) {
    WaitGuard lock(waitLock());
    if (!object.take()) sleepServing(lock, &object, kNever);
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

constexpr std::size_t kMostObjects = 64;

/// What one call of WaitForMultipleObjects waits for; the objects stay alive meanwhile.
struct WaitedFor {
    std::array<std::shared_ptr<Waitable>, kMostObjects> objects;
    std::array<const void*, kMostObjects> keys{};
    std::size_t count = 0;

    std::span<const std::shared_ptr<Waitable>> all() const { return std::span(objects).first(count); }
    std::span<const void* const> allKeys() const { return std::span(keys).first(count); }
};

/// False when a handle has no object that can be waited for.
bool lookUp(std::span<const HANDLE> handles, WaitedFor& waited) {
    for (const HANDLE handle : handles) {
        auto object = objectOf<Waitable>(handle);
        if (!object) return false;
        waited.keys[waited.count] = object.get();
        waited.objects[waited.count++] = std::move(object);
    }
    return true;
}

DWORD waitForAny(WaitGuard& lock, const WaitedFor& waited, std::int64_t deadline) {
    const auto ready = std::ranges::find_if(waited.all(), [](const auto& object) { return object->take(); });
    if (ready != waited.all().end()) return WAIT_OBJECT_0 + static_cast<DWORD>(ready - waited.all().begin());
    const void* released = sleepServing(lock, waited.allKeys(), deadline);
    if (released == nullptr) return WAIT_TIMEOUT;
    const auto keys = waited.allKeys();
    return WAIT_OBJECT_0 + static_cast<DWORD>(std::ranges::find(keys, released) - keys.begin());
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

DWORD WaitForMultipleObjects(DWORD count, const HANDLE* objects, BOOL all, DWORD milliseconds) {
    platform::WaitedFor waited;
    if (count == 0 || count > platform::kMostObjects || objects == nullptr || all != FALSE) return WAIT_FAILED;
    if (!platform::lookUp({objects, count}, waited)) return WAIT_FAILED;
    platform::WaitGuard lock(platform::waitLock());
    return platform::waitForAny(lock, waited, platform::deadlineAfter(milliseconds));
}
