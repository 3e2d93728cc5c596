#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "engine_string.h"

namespace grub {

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
