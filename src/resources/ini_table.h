#pragma once

#include <cstdint>
#include <string_view>

#include "engine_string.h"
#include "resource_source.h"

namespace grub {

/// One line of an INI file, taken apart. The texts point into the line.
struct IniLine {
    enum class Kind {
        Nothing,    // blank, or a comment
        Section,    // "[name]": the name reaches to the last "]"
        Entry,      // "key=value": the key reaches to the first "=", neither is trimmed
        Malformed,  // anything else; the game skips it
    };
    Kind kind = Kind::Nothing;
    std::string_view name;  // of the section, or the key
    std::string_view value;
};

/// Takes a line without its end apart. It drops only blanks and tabs at the line's start.
[[nodiscard]] IniLine parseIniLine(std::string_view line);

/// Calls `visit(line)` for each line of `text`, without its CR LF. Returns what follows the last line end; a table
/// loses that. A lone LF ends a line too, so that a table survives an editor or a checkout that turns CR LF into LF.
template <class Visitor>
std::string_view forEachIniLine(std::string_view text, Visitor visit) {
    for (auto end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        visit(line);
        text.remove_prefix(end + 1);
    }
    return text;
}

/// A text table of sections, keys and values. The constructor parses it; afterwards any thread may ask. Section and key
/// are glued together without anything between them (section 12, key type: "12type"), and the first definition wins.
/// The table skips malformed lines without a message.
class IniTable {
public:
    /// Parses a whole file. `bucketCount` only spreads the names; choose about one for each entry.
    IniTable(const SharedBuffer& file, std::uint32_t bucketCount);

    /// Returns false also for a line with nothing behind its `=`: such a line is malformed.
    [[nodiscard]] bool has(const EngineString& section, const EngineString& key) const;
    /// The value as written, blanks included; empty when the table does not have the key.
    [[nodiscard]] EngineString getString(const EngineString& section, const EngineString& key) const;
    /// The first value of the key that consists of decimal digits only, modulo 2^32; -1 when the key has no such value.
    [[nodiscard]] std::int32_t getInt(const EngineString& section, const EngineString& key) const;

private:
    void addEntry(const EngineString& fullKey, std::string_view value);

    StringMap<EngineString> strings_;
    StringMap<std::int32_t> numbers_;
};

}  // namespace grub
