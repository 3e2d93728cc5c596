#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "bytes.h"
#include "resource_source.h"

namespace grub {

/// Named resources in memory, in place of a package. Any thread may load.
class MemorySource final : public ResourceSource {
public:
    /// Adds or replaces a resource.
    void put(const std::string& name, Bytes bytes) { resources_[name] = std::move(bytes); }
    void put(const std::string& name, const std::string& text) { resources_[name].assign(text.begin(), text.end()); }
    void remove(const std::string& name) { resources_.erase(name); }
    /// The names of all loads so far, found or not, in order.
    [[nodiscard]] const std::vector<std::string>& loads() const { return loads_; }

    bool exists(const EngineString& name) override { return resources_.contains(name.cStr()); }
    SharedBuffer load(const EngineString& name) override {
        if (onLoad) onLoad(name);
        const std::lock_guard lock(lock_);
        loads_.emplace_back(name.cStr());
        const auto found = resources_.find(name.cStr());
        if (found == resources_.end()) return {};
        return bufferOf(found->second);
    }

    /// Called at the start of a load, on its thread; may be empty.
    std::function<void(const EngineString& name)> onLoad;

private:
    std::mutex lock_;
    std::map<std::string, Bytes> resources_;
    std::vector<std::string> loads_;
};

}  // namespace grub
