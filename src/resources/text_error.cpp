#include "text_error.h"

namespace grub {

std::string TextError::in(std::string_view file) const {
    return std::string(file) + (line > 0 ? ":" + std::to_string(line) : "") + ": " + message;
}

TextError wantedButFound(int line, std::string_view wanted, std::string_view found) {
    return {line, "wanted " + std::string(wanted) + ", found " + std::string(found)};
}

std::string inQuotes(std::string_view text) {
    constexpr std::size_t kEnough = 40;
    std::string shown = "'";
    for (const char c : text.substr(0, kEnough)) shown += (c < ' ' || c > '~') ? '?' : c;
    return shown + (text.size() > kEnough ? "...'" : "'");
}

}  // namespace grub
