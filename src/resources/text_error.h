#pragma once

#include <string>
#include <string_view>

namespace grub {

/// Where a text is wrong, what was wanted and what was found. Line 0 means the text as a whole.
struct TextError {
    int line = 0;
    std::string message;

    /// "file:line: message".
    [[nodiscard]] std::string in(std::string_view file) const {
        return std::string(file) + (line > 0 ? ":" + std::to_string(line) : "") + ": " + message;
    }
};

}  // namespace grub
