#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bytes.h"

namespace grub {

/// Builds a good package in memory: entries and their data in the order of `add`. It checks nothing, so that a test can
/// also add equal names, or names that no tool would write.
class PackageWriter {
public:
    PackageWriter& add(std::string_view name, Bytes data);
    [[nodiscard]] Bytes package() const;

private:
    struct Entry {
        std::string name;
        Bytes data;
    };
    std::vector<Entry> entries_;
};

}  // namespace grub
