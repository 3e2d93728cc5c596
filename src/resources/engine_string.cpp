#include "engine_string.h"

#include <algorithm>
#include <cstring>

namespace grub {
namespace {

std::string_view boundedView(const char* text, std::uint32_t maximum) {
    if (maximum == EngineString::kNoMaximum) return text;
    return {text, strnlen(text, maximum)};
}

std::string_view substring(std::string_view text, std::uint32_t start, std::uint32_t count) {
    return start < text.size() ? text.substr(start, count) : std::string_view();
}

}  // namespace

EngineString::EngineString(const char* text, std::uint32_t maximum) : characters_(boundedView(text, maximum)) {}

EngineString::EngineString(std::string_view bytes) : characters_(bytes) {}

EngineString::EngineString(const EngineString& other, std::uint32_t start, std::uint32_t count)
    : characters_(substring(other.view(), start, count)) {}

EngineString& EngineString::operator=(const EngineString& other) {
    characters_ = std::string(other.cStr());  // a copy first: `other` may be this very string
    return *this;
}

void EngineString::assign(const char* text, std::uint32_t maximum) {
    characters_ = std::string(boundedView(text, maximum));  // a copy first: `text` may lie in this very string
}

EngineString operator+(const EngineString& a, const EngineString& b) {
    EngineString sum(a);
    sum.characters_ += b.characters_;
    return sum;
}

}  // namespace grub
