#pragma once

#include <cstdint>
#include <type_traits>

namespace grub {

/// A number that stands for a whole state: FNV-1a of 64 bits over the low 32 bits of each value, lowest byte first, so
/// that it is the same on every machine and with every compiler.
class StateHash {
public:
    /// Adds values of whole-number, bool and enumeration types, in the order given.
    template <class... Values>
    void add(Values... values) {
        (addWord(static_cast<std::uint32_t>(values)), ...);
    }
    /// Of what has been added so far.
    [[nodiscard]] std::uint64_t value() const { return value_; }

private:
    void addWord(std::uint32_t word) {
        for (int byte = 0; byte < 4; ++byte) {
            value_ = (value_ ^ (word & 0xFFU)) * 0x100000001B3ULL;
            word >>= 8U;
        }
    }

    std::uint64_t value_ = 0xCBF29CE484222325ULL;
};

}  // namespace grub
