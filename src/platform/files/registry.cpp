#include <algorithm>
#include <mutex>
#include <string>
#include <utility>

#include "files/registry_store.h"
#include "kernel/objects.h"

namespace platform {
namespace {

/// An open key: only its path, since the file is read at each call. Another running game may have changed it.
class KeyObject final : public KernelObject {
public:
    explicit KeyObject(std::string path) : path_(std::move(path)) {}
    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// One call at a time reads or rewrites the file.
std::mutex& fileLock() {
    static auto* lock = new std::mutex;
    return *lock;
}

std::string pathOf(LPCSTR below) { return std::string("HKEY_CURRENT_USER\\") + below; }

HKEY newKey(std::string path) {
    return reinterpret_cast<HKEY>(newHandle(std::make_shared<KeyObject>(std::move(path))));
}

std::shared_ptr<KeyObject> keyOf(HKEY key) { return objectOf<KeyObject>(reinterpret_cast<HANDLE>(key)); }

/// The file holds one value a line with tabs between its fields.
bool canBeStored(const std::string& name) { return name.find_first_of("\t\n\r") == std::string::npos; }

}  // namespace
}  // namespace platform

LONG RegOpenKeyExA(HKEY root, LPCSTR path, DWORD /*options*/, REGSAM /*access*/, HKEY* key) {
    if (root != HKEY_CURRENT_USER) return ERROR_INVALID_HANDLE;
    const std::lock_guard lock(platform::fileLock());
    auto whole = platform::pathOf(path);
    if (!platform::loadRegistry(platform::registryFile()).keys.contains(whole)) return ERROR_FILE_NOT_FOUND;
    *key = platform::newKey(std::move(whole));
    return ERROR_SUCCESS;
}

LONG RegCreateKeyExA(HKEY root, LPCSTR path, DWORD /*reserved*/, LPSTR /*keyClass*/, DWORD /*options*/,
                     REGSAM /*access*/, void* /*attributes*/, HKEY* key, DWORD* /*disposition*/) {
    if (root != HKEY_CURRENT_USER) return ERROR_INVALID_HANDLE;
    const std::lock_guard lock(platform::fileLock());
    auto whole = platform::pathOf(path);
    auto contents = platform::loadRegistry(platform::registryFile());
    const bool isNew = contents.keys.try_emplace(whole).second;
    if (isNew && !(platform::canBeStored(whole) && platform::saveRegistry(platform::registryFile(), contents))) {
        return ERROR_WRITE_FAULT;
    }
    *key = platform::newKey(std::move(whole));
    return ERROR_SUCCESS;
}

LONG RegQueryValueExA(HKEY key, LPCSTR name, DWORD* /*reserved*/, DWORD* type, BYTE* data, DWORD* size) {
    const auto object = platform::keyOf(key);
    if (!object) return ERROR_INVALID_HANDLE;
    const std::lock_guard lock(platform::fileLock());
    auto contents = platform::loadRegistry(platform::registryFile());
    const auto& values = contents.keys[object->path()];
    const auto value = values.find(name);
    if (value == values.end()) return ERROR_FILE_NOT_FOUND;
    const auto& bytes = value->second.bytes;
    const DWORD room = std::exchange(*size, static_cast<DWORD>(bytes.size()));
    if (type != nullptr) *type = value->second.type;
    if (room < bytes.size()) return ERROR_MORE_DATA;
    std::ranges::copy(bytes, data);
    return ERROR_SUCCESS;
}

LONG RegSetValueExA(HKEY key, LPCSTR name, DWORD /*reserved*/, DWORD type, const BYTE* data, DWORD size) {
    const auto object = platform::keyOf(key);
    if (!object) return ERROR_INVALID_HANDLE;
    const std::lock_guard lock(platform::fileLock());
    auto contents = platform::loadRegistry(platform::registryFile());
    contents.keys[object->path()][name] = {type, {data, data + size}};
    const bool stored = platform::canBeStored(name) && platform::saveRegistry(platform::registryFile(), contents);
    return stored ? ERROR_SUCCESS : ERROR_WRITE_FAULT;
}

LONG RegCloseKey(HKEY key) {
    return CloseHandle(reinterpret_cast<HANDLE>(key)) != FALSE ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}
