#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bytes.h"

namespace grub {

/// Builds a good package in memory: entries and their data in the order of `add`. It checks nothing, so that a test can
/// also add equal names, or names that no tool would write.
class PackageWriter {
public:
    PackageWriter& add(std::string_view name, Bytes data) {
        entries_.emplace_back(name, std::move(data));
        return *this;
    }
    [[nodiscard]] Bytes package() const {
        std::size_t directorySize = 0;
        for (const auto& entry : entries_) directorySize += entry.first.size() + 1 + 4 + 4;
        directorySize = std::max<std::size_t>(directorySize, 8);
        Bytes package;
        Bytes contents;
        append(package, {{0x1978, 2}, {directorySize, 2}, {entries_.size(), 2}});
        for (const auto& [name, data] : entries_) {
            package.insert(package.end(), name.begin(), name.end());
            append(package, {{0, 1}, {data.size(), 4}, {6 + directorySize + contents.size(), 4}});
            contents.insert(contents.end(), data.begin(), data.end());
        }
        package.resize(6 + directorySize);
        package.insert(package.end(), contents.begin(), contents.end());
        return package;
    }

private:
    std::vector<std::pair<std::string, Bytes>> entries_;
};

}  // namespace grub
