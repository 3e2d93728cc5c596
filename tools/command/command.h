#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace grub {

/// The exit code of a command that could not do its work, unless it tells more than that.
inline constexpr int kFailed = 1;

/// Ends the command, after a line on standard error.
[[noreturn]] void failWith(int exitCode, const std::string& line);

/// A whole file; a command whose file cannot be read or written fails.
[[nodiscard]] std::vector<std::uint8_t> inputBytes(const std::string& path, int exitCode = kFailed);
[[nodiscard]] std::string inputText(const std::string& path, int exitCode = kFailed);
void outputBytes(const std::string& path, std::span<const std::uint8_t> bytes, int exitCode = kFailed);
void outputText(const std::string& path, std::string_view text, int exitCode = kFailed);

}  // namespace grub
