#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace grub {

/// A line of a text that people write.
struct TextLine {
    int number = 0;            // from 1
    std::string_view content;  // without the blanks around it
};

/// The lines that are neither blank nor a comment, as views of `text`. A comment is a line whose first sign is `#`;
/// behind other signs `#` means itself.
[[nodiscard]] std::vector<TextLine> textLines(std::string_view text);

/// The same for texts in which a comment reaches from the sign `comment`, at any place, to the end of its line.
[[nodiscard]] std::vector<TextLine> textLines(std::string_view text, char comment);

/// `text` without the blanks, tabs and CRs around it.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// A trimmed line up to its first blank.
[[nodiscard]] std::string_view firstWord(std::string_view line);

/// The words of a line, which blanks separate.
[[nodiscard]] std::vector<std::string_view> splitWords(std::string_view line);

/// The number that the whole word is; nothing when the word has blanks, a "+" or anything behind the number, or when
/// `Number` cannot hold it. `base` is for integers that are not decimal.
template <class Number, class... Base>
[[nodiscard]] std::optional<Number> numberIn(std::string_view word, Base... base) {
    Number value{};
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, value, base...);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return value;
}

/// What is wrong with a text, and in which line. Line 0 means the text as a whole.
struct TextError {
    int line = 0;
    std::string message;

    /// "file:line: message".
    [[nodiscard]] std::string in(std::string_view file) const;
};

/// The error "wanted WANTED, found FOUND".
[[nodiscard]] TextError wantedButFound(int line, std::string_view wanted, std::string_view found);

/// A piece of a text for a message, in quotes: at most 40 bytes, and `?` in place of what is not printable ASCII.
[[nodiscard]] std::string inQuotes(std::string_view text);

}  // namespace grub
