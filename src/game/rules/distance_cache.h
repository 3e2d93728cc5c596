#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace grub {

/// Distances of fills from one start cell, kept to be used again. They depend on nothing but the start and the steps of
/// the field, which change only when hidden ladders appear. For searches, which come to the same cell in thousands of
/// worlds; play itself has no use for it. The fields that share a cache have one size and belong to one thread.
class DistanceCache {
public:
    using Distances = std::vector<std::uint16_t>;

    /// Null when there is none yet. `routes` is a number for the steps of the field. Valid until the next `add`.
    [[nodiscard]] const Distances* find(std::uint64_t routes, std::size_t start) const {
        const auto known = fills_.find(keyOf(routes, start));
        return known == fills_.end() ? nullptr : &known->second;
    }
    /// Keeps a copy.
    void add(std::uint64_t routes, std::size_t start, const Distances& distances) {
        fills_.emplace(keyOf(routes, start), distances);
        bytes_ += distances.size() * sizeof(Distances::value_type);
    }
    /// What the distances take.
    [[nodiscard]] std::size_t bytes() const { return bytes_; }

private:
    static std::uint64_t keyOf(std::uint64_t routes, std::size_t start) { return routes + start; }

    std::unordered_map<std::uint64_t, Distances> fills_;
    std::size_t bytes_ = 0;
};

/// Where a field looks for distances; nowhere at first. It does not count when fields are compared.
struct DistanceCachePointer {
    DistanceCache* cache = nullptr;

    friend bool operator==(DistanceCachePointer, DistanceCachePointer) { return true; }
};

}  // namespace grub
