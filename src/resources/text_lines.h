#pragma once

#include <charconv>
#include <limits>
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

/// What is wrong with a text, and where. Line 0 means the text as a whole, column 0 the whole line; both count from 1.
struct TextError {
    int line = 0;
    std::string message;
    int column = 0;

    /// "file:line:column: message", without what is 0.
    [[nodiscard]] std::string in(std::string_view file) const;
};

/// The error "wanted WANTED, found FOUND".
[[nodiscard]] TextError wantedButFound(int line, std::string_view wanted, std::string_view found);

/// A piece of a text for a message, in quotes: at most 40 bytes, and `?` in place of what is not printable ASCII.
[[nodiscard]] std::string inQuotes(std::string_view text);

/// Takes the words of a line one after the other. The first word that is not what was wanted fails the line for good:
/// what is taken then is empty or 0, and `error` tells of that first word.
class WordReader {
public:
    explicit WordReader(const TextLine& line) : number_(line.number), rest_(line.content) {}

    /// The next word without taking it; empty at the end of the line.
    [[nodiscard]] std::string_view peek() const;
    /// The next word, which must be there; `wanted` says what it should be.
    std::string_view word(std::string_view wanted);
    /// The next word, which must be this one.
    void literal(std::string_view wanted);
    /// Everything to the end of the line, blanks and all; at least a word.
    std::string_view rest(std::string_view wanted);
    /// A decimal number from `low` to `high`, both included.
    template <class Number>
    Number number(std::string_view wanted, Number low = 0, Number high = std::numeric_limits<Number>::max()) {
        const std::string_view digits = word(wanted);
        const auto value = numberIn<Number>(digits);
        if (value && *value >= low && *value <= high) return *value;
        fail(wanted, digits);
        return {};
    }
    /// The line must be over.
    void finish();
    /// Says that `found` is not what was wanted; an earlier fault stays.
    void fail(std::string_view wanted, std::string_view found);

    /// Whether the line is over; whether all was as wanted, and what was not.
    [[nodiscard]] bool atEnd() const { return rest_.empty(); }
    [[nodiscard]] bool ok() const { return error_.message.empty(); }
    [[nodiscard]] const TextError& error() const { return error_; }

private:
    int number_;
    std::string_view rest_;
    TextError error_;
};

}  // namespace grub
