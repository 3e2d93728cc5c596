#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

/// The hash by which packages and INI tables spread names over buckets. Bytes from 128 up count as negative numbers;
/// everything wraps in 32 bits.
[[nodiscard]] constexpr std::uint32_t stringHash(std::string_view name) {
    std::uint32_t hash = 0;
    std::uint32_t multiplier = 31415;
    for (const char character : name) {
        hash = multiplier * hash + static_cast<std::uint32_t>(static_cast<std::int8_t>(character));
        multiplier *= 27183;
    }
    return hash;
}

/// A hash map from names to values with a fixed number of buckets. A new entry goes to the head of its bucket's chain;
/// of two equal names the first one stays. Many threads may call `find` at once as long as no thread inserts.
template <class Value>
class StringMap {
public:
    /// `bucketCount` of 0 counts as 1.
    explicit StringMap(std::uint32_t bucketCount) : heads_(bucketCount == 0 ? 1 : bucketCount, kNone) {}

    /// Returns false, and changes nothing, when the map has the name already.
    bool insert(std::string_view name, Value value) {
        if (find(name) != nullptr) return false;
        const std::uint32_t hash = stringHash(name);
        std::uint32_t& head = heads_[hash % heads_.size()];
        nodes_.push_back({EngineString(name), hash, std::move(value), head});
        head = static_cast<std::uint32_t>(nodes_.size()) - 1;
        return true;
    }

    /// Null when the map does not have the name; valid until the next insert.
    [[nodiscard]] const Value* find(std::string_view name) const {
        const std::uint32_t hash = stringHash(name);
        for (std::uint32_t at = heads_[hash % heads_.size()]; at != kNone; at = nodes_[at].next) {
            const Node& node = nodes_[at];
            if (node.hash == hash && node.name.view() == name) return &node.value;
        }
        return nullptr;
    }

private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    struct Node {
        EngineString name;
        std::uint32_t hash;
        Value value;
        std::uint32_t next;  // index of the next node of the chain
    };

    std::vector<std::uint32_t> heads_;
    std::vector<Node> nodes_;
};

}  // namespace grub
