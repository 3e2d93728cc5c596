#pragma once

#include <concepts>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "text_lines.h"

namespace grub {

/// What a command takes from the command line. `name` starts with "--" for an option; every other parameter is a word
/// that is known by its place.
struct Parameter {
    enum class Takes { Text, Texts, Number, Nothing };

    const char* name = nullptr;
    const char* help = nullptr;
    Takes takes = Takes::Text;
    bool isRequired = true;
    std::uint32_t least = 0;  // of a number
    std::uint32_t most = 0;
    const char* needs = nullptr;     // an option that must be given too
    const char* excludes = nullptr;  // an option that must not be given too
};

/// A word that must be given.
[[nodiscard]] constexpr Parameter word(const char* name, const char* help) { return {.name = name, .help = help}; }

/// All words that are left; at least one when `isRequired`.
[[nodiscard]] constexpr Parameter words(const char* name, const char* help, bool isRequired) {
    return {.name = name, .help = help, .takes = Parameter::Takes::Texts, .isRequired = isRequired};
}

/// An option with a text.
[[nodiscard]] constexpr Parameter option(const char* name, const char* help, bool isRequired = false) {
    return {.name = name, .help = help, .isRequired = isRequired};
}

/// An option with a whole number from `least` to `most`, written in decimal digits.
[[nodiscard]] constexpr Parameter number(const char* name, const char* help, std::uint32_t least, std::uint32_t most,
                                         bool isRequired = false) {
    return {.name = name,
            .help = help,
            .takes = Parameter::Takes::Number,
            .isRequired = isRequired,
            .least = least,
            .most = most};
}

/// An option without a value.
[[nodiscard]] constexpr Parameter flag(const char* name, const char* help) {
    return {.name = name, .help = help, .takes = Parameter::Takes::Nothing, .isRequired = false};
}

/// The values that one call of a command was given, by the names of its parameters. Throws std::out_of_range for a name
/// that the command does not have: that is a mistake in the command.
class Arguments {
public:
    /// `given` has an entry for every parameter of the command; a flag has one value, of any text, when it is given.
    explicit Arguments(std::map<std::string, std::vector<std::string>> given) : given_(std::move(given)) {}

    /// Whether the parameter was given.
    [[nodiscard]] bool has(const std::string& name) const { return !given_.at(name).empty(); }
    /// Empty when the parameter was not given.
    [[nodiscard]] std::string text(const std::string& name) const { return has(name) ? given_.at(name).back() : ""; }
    [[nodiscard]] const std::vector<std::string>& texts(const std::string& name) const { return given_.at(name); }
    /// `otherwise` when the parameter was not given.
    template <std::integral Number>
    [[nodiscard]] Number number(const std::string& name, Number otherwise) const {
        return numberIn<Number>(text(name)).value_or(otherwise);
    }

private:
    std::map<std::string, std::vector<std::string>> given_;
};

/// One command of grubtool, or a group of commands: then there is no `run`, and the commands of the group begin with
/// its name, as "level show" does with "level".
struct Command {
    std::string_view name;
    std::string_view help;
    std::vector<Parameter> parameters;
    void (*run)(const Arguments&) = nullptr;
};

/// The exit code of a command that could not do its work, unless the command has codes of its own.
inline constexpr int kFailed = 1;

/// Thrown to end a command with an exit code; all messages are written before.
struct CommandEnd {
    int exitCode = kFailed;
};

/// Writes a line to standard error and throws CommandEnd.
[[noreturn]] void failWith(int exitCode, const std::string& line);

/// The bytes or the text of a whole file. If the file cannot be read, the command fails.
[[nodiscard]] std::vector<std::uint8_t> inputBytes(const std::string& path, int exitCode = kFailed);
[[nodiscard]] std::string inputText(const std::string& path, int exitCode = kFailed);
/// Writes a whole file. If it cannot be written, the command fails.
void outputBytes(const std::string& path, std::span<const std::uint8_t> bytes, int exitCode = kFailed);
void outputText(const std::string& path, std::string_view text, int exitCode = kFailed);

}  // namespace grub
