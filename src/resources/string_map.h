#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "engine_string.h"
#include "string_hash.h"

namespace grub {

/// A hash map of names with a fixed number of buckets. A new entry goes to the head of its bucket's chain; the first
/// of two equal names stays. Many threads may look up at once while nobody inserts.
template <class Value>
class StringMap {
public:
    /// `bucketCount` of 0 counts as 1.
    explicit StringMap(std::uint32_t bucketCount) : heads_(bucketCount == 0 ? 1 : bucketCount, kNone) {}

    /// False, and nothing changes, when the name is there already.
    bool insert(std::string_view name, Value value) {
        if (find(name) != nullptr) return false;
        const std::uint32_t hash = stringHash(name);
        std::uint32_t& head = headOf(hash);
        nodes_.push_back({EngineString(name), hash, std::move(value), head});
        head = size() - 1;
        return true;
    }

    /// Null when there is no such name; valid until the next insert.
    [[nodiscard]] const Value* find(std::string_view name) const {
        const std::uint32_t hash = stringHash(name);
        for (std::uint32_t at = heads_[hash % heads_.size()]; at != kNone; at = nodes_[at].next) {
            const Node& node = nodes_[at];
            if (node.hash == hash && node.name.view() == name) return &node.value;
        }
        return nullptr;
    }

    /// Number of names.
    [[nodiscard]] std::uint32_t size() const { return static_cast<std::uint32_t>(nodes_.size()); }

private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    struct Node {
        EngineString name;
        std::uint32_t hash;
        Value value;
        std::uint32_t next;  // index of the next node of the chain
    };

    std::uint32_t& headOf(std::uint32_t hash) { return heads_[hash % heads_.size()]; }

    std::vector<std::uint32_t> heads_;
    std::vector<Node> nodes_;
};

}  // namespace grub
