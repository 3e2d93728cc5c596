#pragma once

#include <string>
#include <string_view>

namespace grub {

/// Where a text is wrong, what was wanted and what was found. Line 0 means the text as a whole.
struct TextError {
    int line = 0;
    std::string message;

    /// "file:line: message".
    [[nodiscard]] std::string in(std::string_view file) const;
};

/// "wanted WANTED, found FOUND".
[[nodiscard]] TextError wantedButFound(int line, std::string_view wanted, std::string_view found);

/// A piece of a text for a message: in quotes, on one line, and not endless, whatever the file holds.
[[nodiscard]] std::string inQuotes(std::string_view text);

}  // namespace grub
