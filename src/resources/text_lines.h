#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

namespace grub {

/// A line of a text that people write.
struct TextLine {
    int number = 0;            // from 1
    std::string_view content;  // without its comment and the blanks around it
};

/// The lines of a text that say something; a comment reaches from `comment` to the end of its line. Views of `text`.
[[nodiscard]] std::vector<TextLine> textLines(std::string_view text, char comment);

/// Without the blanks around it.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// A trimmed line up to its first blank.
[[nodiscard]] std::string_view firstWord(std::string_view line);

/// The words of a line, which blanks separate.
[[nodiscard]] std::vector<std::string_view> splitWords(std::string_view line);

/// The number that the whole word is: no blanks, no "+", and nothing behind it. `base` for integers other than decimal.
template <class Number, class... Base>
[[nodiscard]] std::optional<Number> numberIn(std::string_view word, Base... base) {
    Number value{};
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, value, base...);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return value;
}

}  // namespace grub
