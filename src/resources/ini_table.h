#pragma once

#include <cstdint>
#include <string_view>

#include "engine_string.h"
#include "shared_buffer.h"
#include "string_map.h"

namespace grub {

/// A text table of sections, keys and values, parsed once; afterwards any thread may ask. Section and key are glued
/// together without anything between them (section 12, key type: "12type"), and the first definition wins.
/// Malformed lines are skipped silently.
class IniTable {
public:
    /// Parses a whole file. `bucketCount` only spreads the names; choose about one for each entry.
    IniTable(const SharedBuffer& file, std::uint32_t bucketCount);

    /// False also for a line with nothing behind its `=`: that one is malformed.
    [[nodiscard]] bool has(const EngineString& section, const EngineString& key) const;
    /// The value as written, blanks included; empty when there is none.
    [[nodiscard]] EngineString getString(const EngineString& section, const EngineString& key) const;
    /// -1 when there is none, or when the first value that is a number is not made of decimal digits alone. Numbers
    /// wrap in 32 bits.
    [[nodiscard]] std::int32_t getInt(const EngineString& section, const EngineString& key) const;

private:
    void addEntry(const EngineString& fullKey, std::string_view value);

    StringMap<EngineString> strings_;
    StringMap<std::int32_t> numbers_;
};

}  // namespace grub
