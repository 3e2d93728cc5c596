#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace grub {

/// The engine's byte string: owned, always NUL-terminated, with a 32-bit length that may count NULs in the middle.
class EngineString {
public:
    /// As a maximum length: all of it.
    static constexpr std::uint32_t kNoMaximum = 0xFFFFFFFF;

    EngineString() = default;
    /// A C string, or its first `maximum` bytes: nothing behind these is looked at, so they need no NUL.
    EngineString(const char* text, std::uint32_t maximum = kNoMaximum);  // NOLINT(google-explicit-constructor)
    /// Exactly these bytes, NULs included.
    explicit EngineString(std::string_view bytes);
    /// At most `count` bytes of `other` from index `start`; empty when `start` lies behind its end.
    EngineString(const EngineString& other, std::uint32_t start, std::uint32_t count);

    /// A copy keeps the whole length...
    EngineString(const EngineString&) = default;
    EngineString(EngineString&&) noexcept = default;
    /// ...but an assignment takes only the bytes before the other's first NUL.
    EngineString& operator=(const EngineString& other);
    ~EngineString() = default;

    /// Takes a C string, or its first `maximum` bytes, which need no NUL behind them.
    void assign(const char* text, std::uint32_t maximum = kNoMaximum);

    /// Bytes before the terminating NUL.
    [[nodiscard]] std::uint32_t length() const { return static_cast<std::uint32_t>(characters_.size()); }
    /// Never null; valid until this string changes.
    [[nodiscard]] const char* cStr() const { return characters_.c_str(); }
    /// All bytes, NULs included; valid until this string changes.
    [[nodiscard]] std::string_view view() const { return characters_; }
    /// The byte at `index`, which may be at most `length()`.
    [[nodiscard]] char operator[](std::uint32_t index) const { return characters_[index]; }

    friend EngineString operator+(const EngineString& a, const EngineString& b);
    friend bool operator==(const EngineString&, const EngineString&) = default;

private:
    std::string characters_;
};

}  // namespace grub
