#pragma once

#include <limits>
#include <string_view>

#include "text_lines.h"

namespace grub {

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
