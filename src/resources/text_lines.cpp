#include "text_lines.h"

#include <algorithm>

namespace grub {

namespace {

constexpr std::string_view kBlanks = " \t\r";

}  // namespace

std::vector<TextLine> textLines(std::string_view text, char comment) {
    std::vector<TextLine> lines;
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::string_view content = trimmed(line.substr(0, line.find(comment)));
        if (!content.empty()) lines.push_back({number, content});
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

}  // namespace grub
