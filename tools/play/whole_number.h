#pragma once

#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdint>
#include <string>
#include <system_error>

namespace grub {

/// For `transform` of a number option: digits alone, from 0 to `largest`. The parser by itself takes an empty word for
/// 0, "010" for 8, blanks and signs.
inline CLI::Validator wholeNumber(std::uint32_t largest) {
    const std::string limit = std::to_string(largest);
    const auto normalise = [largest, limit](std::string& text) {
        std::uint32_t value = 0;
        const char* const last = text.data() + text.size();
        const auto [end, fault] = std::from_chars(text.data(), last, value);
        if (fault != std::errc{} || end != last || value > largest)
            return "'" + text + "' is not a number from 0 to " + limit;
        text = std::to_string(value);
        return std::string();
    };
    return {normalise, "0 to " + limit};
}

}  // namespace grub
