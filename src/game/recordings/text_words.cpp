#include "text_words.h"

namespace grub {

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
