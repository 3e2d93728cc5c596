#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "material.h"
#include "page_lines.h"
#include "vector_path.h"

namespace grub {

/// Takes the words of a statement one after the other, from the one behind its tag on. The first word that is not what
/// was wanted fails the line for good: what is taken then is empty or 0.
/// A number is a sum of products: numbers, names of measures, and `i` for the repetition, as in 174+58i or top+row*i.
class LineReader {
public:
    /// `origin` is the rectangle whose corner numbers behind '@' count from, and which `all` means. The line and the
    /// measures outlive the reader.
    LineReader(const PageLine& line, const Measures& measures, const Rect& origin = {})
        : line_(line), measures_(measures), origin_(origin) {}

    /// The next word, in quotes or not.
    std::string word(std::string_view wanted);
    /// The next word, which must stand in quotes.
    std::string quoted(std::string_view wanted);
    double number(std::string_view wanted, double low = -10000, double high = 10000);
    float share(std::string_view wanted) { return static_cast<float>(number(wanted, 0, 1)); }
    /// A number without fraction.
    int whole(std::string_view wanted, int low = -10000, int high = 10000);
    /// Columns and rows of the page; "@3" is 3 pixels from the corner of the origin.
    Point point();
    /// Corner, width and height in one line; `all` is the origin.
    Rect area();
    /// Six hexadecimal digits.
    Rgb colour();
    /// "x2.5": how many times as large.
    double scale();
    /// Takes the next word when it is this one.
    bool takes(std::string_view word);
    /// Takes the value of the next word when that is "KEY=VALUE".
    std::optional<std::string> takesValue(std::string_view key);
    /// The row of a table whose `name` the next word is; null when there is none, which is a fault.
    template <class Row>
    const Row* row(std::string_view what, std::span<const Row> rows) {
        const std::string name = word(what);
        if (!ok()) return nullptr;
        for (const Row& row : rows) {
            if (row.name == name) return &row;
        }
        std::string names;
        for (const Row& row : rows) names += (names.empty() ? "" : ", ") + std::string(row.name);
        fail(std::string(what) + " (" + names + ")", name);
        return nullptr;
    }
    /// A number inside another word.
    double valueOf(std::string_view text, std::string_view wanted, double low = -10000, double high = 10000);
    Rgb colourOf(std::string_view text);

    bool atEnd() const { return next_ >= line_.words.size(); }
    /// The line must be over.
    void finish();
    /// Says what was wanted instead of `found`; an earlier fault stays.
    void fail(std::string_view wanted, std::string_view found);
    bool ok() const { return error_.empty(); }
    /// "FILE:LINE: wanted ..., found ...", or empty.
    const std::string& error() const { return error_; }

private:
    double coordinate(std::string_view wanted, double from);

    const PageLine& line_;
    const Measures& measures_;
    Rect origin_;
    std::size_t next_ = 1;
    std::string error_;
};

}  // namespace grub
