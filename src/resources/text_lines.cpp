#include "text_lines.h"

#include <algorithm>

namespace grub {

namespace {

constexpr std::string_view kBlanks = " \t\r";

}  // namespace

std::vector<TextLine> textLines(std::string_view text) {
    std::vector<TextLine> lines;
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::string_view content = trimmed(line);
        if (!content.empty() && !content.starts_with('#')) lines.push_back({number, content});
    }
    return lines;
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view firstWord(std::string_view line) { return line.substr(0, line.find_first_of(kBlanks)); }

std::vector<std::string_view> splitWords(std::string_view line) {
    std::vector<std::string_view> words;
    for (line = trimmed(line); !line.empty();) {
        words.push_back(firstWord(line));
        line = trimmed(line.substr(words.back().size()));
    }
    return words;
}

std::string TextError::in(std::string_view file) const {
    const auto place = [](int number) { return number > 0 ? ":" + std::to_string(number) : std::string(); };
    return std::string(file) + place(line) + place(column) + ": " + message;
}

TextError wantedButFound(int line, std::string_view wanted, std::string_view found) {
    return {line, "wanted " + std::string(wanted) + ", found " + std::string(found)};
}

std::string inQuotes(std::string_view text) {
    constexpr std::size_t kMostBytes = 40;
    std::string shown = "'";
    for (const char c : text.substr(0, kMostBytes)) shown += (c < ' ' || c > '~') ? '?' : c;
    return shown + (text.size() > kMostBytes ? "...'" : "'");
}

std::string_view WordReader::peek() const { return firstWord(rest_); }

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
    error_ = wantedButFound(number_, wanted, found.empty() ? "the end of the line" : inQuotes(found));
}

}  // namespace grub
