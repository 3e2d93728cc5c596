#include "text_words.h"

#include <algorithm>

namespace grub {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::vector<TextLine> textLines(std::string_view text) {
    std::vector<TextLine> lines;
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::string_view content = trimmed(line.substr(0, line.find('#')));
        if (!content.empty()) lines.push_back({number, content});
    }
    return lines;
}

std::string_view WordReader::peek() const { return rest_.substr(0, rest_.find_first_of(kBlanks)); }

std::string_view WordReader::word(std::string_view wanted) {
    const std::string_view next = ok() ? peek() : std::string_view();
    if (next.empty()) fail(wanted, next);
    rest_ = ok() ? trimmed(rest_.substr(next.size())) : std::string_view();
    return next;
}

void WordReader::literal(std::string_view wanted) {
    const std::string_view found = word(wanted);
    if (found != wanted) fail(wanted, found);
}

std::string_view WordReader::rest(std::string_view wanted) {
    const std::string_view all = rest_;
    word(wanted);
    rest_ = {};
    return ok() ? all : std::string_view();
}

void WordReader::finish() {
    if (!atEnd()) fail("the end of the line", rest_);
}

void WordReader::fail(std::string_view wanted, std::string_view found) {
    if (!ok()) return;
    error_.line = number_;
    error_.message = "wanted " + std::string(wanted) + ", found ";
    error_.message += found.empty() ? "the end of the line" : "'" + std::string(found) + "'";
}

}  // namespace grub
