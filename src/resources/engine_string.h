#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace grub {

/// The engine's byte string. It owns its bytes, always ends with a NUL, and has a 32-bit length that may include NULs
/// in the middle.
class EngineString {
public:
    /// As a maximum length: no limit.
    static constexpr std::uint32_t kNoMaximum = 0xFFFFFFFF;

    EngineString() = default;
    /// Copies a C string, or its first `maximum` bytes. It reads no byte behind these, so they need no NUL.
    EngineString(const char* text, std::uint32_t maximum = kNoMaximum)  // NOLINT(google-explicit-constructor)
        : characters_(boundedView(text, maximum)) {}
    /// Copies exactly these bytes, NULs included.
    explicit EngineString(std::string_view bytes) : characters_(bytes) {}
    /// Copies at most `count` bytes of `other` from index `start`; empty when `start` lies behind its end.
    EngineString(const EngineString& other, std::uint32_t start, std::uint32_t count)
        : characters_(start < other.length() ? other.view().substr(start, count) : std::string_view()) {}

    /// A copy keeps the whole length...
    EngineString(const EngineString&) = default;
    EngineString(EngineString&&) noexcept = default;
    /// ...but an assignment takes only the bytes before the other's first NUL.
    EngineString& operator=(const EngineString& other) {
        characters_ = std::string(other.cStr());  // a copy first: `other` may be this very string
        return *this;
    }
    ~EngineString() = default;

    /// Takes a C string, or its first `maximum` bytes, as the constructor does.
    void assign(const char* text, std::uint32_t maximum = kNoMaximum) {
        characters_ = std::string(boundedView(text, maximum));  // a copy first: `text` may lie in this very string
    }

    /// Bytes before the NUL at the end.
    [[nodiscard]] std::uint32_t length() const { return static_cast<std::uint32_t>(characters_.size()); }
    /// Never null; valid until this string changes.
    [[nodiscard]] const char* cStr() const { return characters_.c_str(); }
    /// All bytes, NULs included; valid until this string changes.
    [[nodiscard]] std::string_view view() const { return characters_; }
    /// The byte at `index`, which may be at most `length()`.
    [[nodiscard]] char operator[](std::uint32_t index) const { return characters_[index]; }

    friend EngineString operator+(const EngineString& a, const EngineString& b) {
        EngineString sum(a);
        sum.characters_ += b.characters_;
        return sum;
    }
    friend bool operator==(const EngineString&, const EngineString&) = default;

private:
    static std::string_view boundedView(const char* text, std::uint32_t maximum) {
        if (maximum == kNoMaximum) return text;
        return {text, strnlen(text, maximum)};
    }

    std::string characters_;
};

}  // namespace grub
