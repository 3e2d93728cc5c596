#include "kernel/objects.h"

#include <cstdint>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace platform {
namespace {

struct HandleTable {
    std::mutex lock;
    std::unordered_map<std::uintptr_t, std::shared_ptr<KernelObject>> objects;
    std::uintptr_t last = 0;
};

/// Never destroyed: threads may close handles after main has returned.
HandleTable& table() {
    static auto* handles = new HandleTable;
    return *handles;
}

std::shared_ptr<KernelObject> remove(HANDLE handle) {
    const std::lock_guard lock(table().lock);
    const auto entry = table().objects.find(reinterpret_cast<std::uintptr_t>(handle));
    if (entry == table().objects.end()) return nullptr;
    auto object = std::move(entry->second);
    table().objects.erase(entry);
    return object;
}

}  // namespace

HANDLE newHandle(std::shared_ptr<KernelObject> object) {
    const std::lock_guard lock(table().lock);
    table().last += 4;  // multiples of four, as Windows gives them; never 0, never INVALID_HANDLE_VALUE
    table().objects.emplace(table().last, std::move(object));
    return reinterpret_cast<HANDLE>(table().last);
}

std::shared_ptr<KernelObject> objectOf(HANDLE handle) {
    const std::lock_guard lock(table().lock);
    const auto entry = table().objects.find(reinterpret_cast<std::uintptr_t>(handle));
    return entry == table().objects.end() ? nullptr : entry->second;
}

}  // namespace platform

BOOL CloseHandle(HANDLE handle) {
    const auto object = platform::remove(handle);
    return object && object->close() ? TRUE : FALSE;
}
