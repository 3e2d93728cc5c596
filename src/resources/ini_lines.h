#pragma once

#include <string_view>

namespace grub {

/// One line of an INI file, taken apart. The texts point into the line.
struct IniLine {
    enum class Kind {
        Nothing,    // blank, or a comment
        Section,    // "[name]": the name reaches to the last "]"
        Entry,      // "key=value": the key reaches to the first "=", neither is trimmed
        Malformed,  // anything else; readers skip it
    };
    Kind kind = Kind::Nothing;
    std::string_view name;  // of the section, or the key
    std::string_view value;
};

/// Takes a line without its end apart. Only blanks and tabs at its start are dropped.
[[nodiscard]] IniLine parseIniLine(std::string_view line);

/// Calls `visit(line)` for each line of `text`, without its CR LF, and returns what follows the last line end, which is
/// no line. A lone LF ends a line too, so that a table survives an editor or a checkout that turns CR LF into LF.
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

}  // namespace grub
