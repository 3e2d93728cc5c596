#include "line_reader.h"

#include <cctype>
#include <cmath>

#include "text_lines.h"

namespace grub {

namespace {

/// Computes a sum of products.
class Sum {
public:
    Sum(std::string_view text, int index, const Measures& measures) : rest_(text), index_(index), measures_(measures) {}

    /// Nothing when the text is not a sum.
    std::optional<double> value() {
        const bool negative = takes('-');
        double sum = product() * (negative ? -1 : 1);
        while (good_ && !rest_.empty()) {
            const bool minus = rest_.front() == '-';
            if (!minus && rest_.front() != '+') return std::nullopt;
            rest_.remove_prefix(1);
            sum += product() * (minus ? -1 : 1);
        }
        return good_ ? std::optional(sum) : std::nullopt;
    }

private:
    bool takes(char sign) {
        if (rest_.empty() || rest_.front() != sign) return false;
        rest_.remove_prefix(1);
        return true;
    }

    std::string_view takeWhile(bool (*wanted)(char)) {
        std::size_t end = 0;
        while (end < rest_.size() && wanted(rest_[end])) ++end;
        const std::string_view taken = rest_.substr(0, end);
        rest_.remove_prefix(end);
        return taken;
    }

    double product() {
        double value = factor();
        while (takes('*')) value *= factor();
        return value;
    }

    double factor() {
        const auto digit = [](char c) { return (c >= '0' && c <= '9') || c == '.'; };
        const auto letter = [](char c) { return (c >= 'a' && c <= 'z') || c == '_'; };
        if (const std::string_view digits = takeWhile(digit); !digits.empty()) {
            const auto number = numberIn<double>(digits);
            good_ = good_ && number.has_value();
            return number.value_or(0) * (takes('i') ? index_ : 1);
        }
        const std::string_view name = takeWhile(letter);
        if (name == "i") return index_;
        const auto measure = measures_.find(name);
        good_ = good_ && measure != measures_.end();
        return good_ ? measure->second : 0;
    }

    std::string_view rest_;
    int index_;
    const Measures& measures_;
    bool good_ = true;
};

}  // namespace

std::string LineReader::word(std::string_view wanted) {
    if (!ok()) return {};
    if (atEnd()) {
        fail(wanted, "");
        return {};
    }
    return line_.words[next_++].text;
}

std::string LineReader::quoted(std::string_view wanted) {
    const bool inPlace = !ok() || atEnd() || line_.words[next_].quoted;
    std::string text = word(wanted);
    if (inPlace) return text;
    fail(std::string(wanted) + " in quotes", text);
    return {};
}

double LineReader::valueOf(std::string_view text, std::string_view wanted, double low, double high) {
    const auto value = Sum(text, line_.index, measures_).value();
    if (value && *value >= low && *value <= high) return *value;
    fail(wanted, text);
    return 0;
}

double LineReader::number(std::string_view wanted, double low, double high) {
    const std::string text = word(wanted);
    return ok() ? valueOf(text, wanted, low, high) : 0;
}

int LineReader::whole(std::string_view wanted, int low, int high) {
    const double value = number(wanted, low, high);
    const double rounded = std::round(value);
    if (std::abs(value - rounded) > 1e-6) fail(std::string(wanted) + " without a fraction", std::to_string(value));
    return static_cast<int>(rounded);
}

double LineReader::coordinate(std::string_view wanted, double from) {
    const std::string text = word(wanted);
    if (!ok()) return 0;
    return text.starts_with('@') ? from + valueOf(std::string_view(text).substr(1), wanted) : valueOf(text, wanted);
}

Point LineReader::point() {
    const double x = coordinate("a column", origin_.x);
    const double y = coordinate("a row", origin_.y);
    return {x, y};
}

Rect LineReader::area() {
    if (takes("all")) return origin_;
    const Point corner = point();
    const double width = number("a width", 0);
    const double height = number("a height", 0);
    return {corner.x, corner.y, width, height};
}

Rgb LineReader::colourOf(std::string_view text) {
    const auto code = numberIn<std::uint32_t>(text, 16);
    if (code && text.size() == 6) return rgb(*code);
    fail("a colour of six hexadecimal digits", text);
    return {};
}

Rgb LineReader::colour() {
    const std::string text = word("a colour");
    return ok() ? colourOf(text) : Rgb{};
}

double LineReader::scale() {
    const std::string text = word("a size such as x2.5");
    if (!ok()) return 1;
    if (!text.starts_with('x')) {
        fail("a size such as x2.5", text);
        return 1;
    }
    return valueOf(std::string_view(text).substr(1), "a size such as x2.5", 0.05, 40);
}

bool LineReader::takes(std::string_view word) {
    if (!ok() || atEnd() || line_.words[next_].quoted || line_.words[next_].text != word) return false;
    ++next_;
    return true;
}

std::optional<std::string> LineReader::takesValue(std::string_view key) {
    const std::string start = std::string(key) + '=';
    if (!ok() || atEnd() || line_.words[next_].quoted || !line_.words[next_].text.starts_with(start))
        return std::nullopt;
    return line_.words[next_++].text.substr(start.size());
}

void LineReader::finish() {
    if (ok() && !atEnd()) fail("the end of the line", line_.words[next_].text);
}

void LineReader::fail(std::string_view wanted, std::string_view found) {
    if (!ok()) return;
    const TextError error =
        wantedButFound(line_.place.number, wanted, found.empty() ? "the end of the line" : inQuotes(found));
    error_ = error.in(line_.place.file);
}

}  // namespace grub
