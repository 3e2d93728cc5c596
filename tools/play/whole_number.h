#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>

#include "text_lines.h"

namespace grub {

/// For `transform` of a number option: digits alone, from 0 to `largest`. The parser by itself takes an empty word for
/// 0, "010" for 8, blanks and signs.
inline CLI::Validator wholeNumber(std::uint32_t largest) {
    const std::string limit = std::to_string(largest);
    const auto normalise = [largest, limit](std::string& text) {
        const auto value = numberIn<std::uint32_t>(text);
        if (!value || *value > largest) return "'" + text + "' is not a number from 0 to " + limit;
        text = std::to_string(*value);
        return std::string();
    };
    return {normalise, "0 to " + limit};
}

}  // namespace grub
