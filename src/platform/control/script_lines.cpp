#include "control/script_lines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "desktop/input_map.h"

namespace platform {
namespace {

using Action = ScriptLine::Action;

enum class Operands { None, Key, Point, File };

struct Verb {
    std::string_view word;
    Action action;
    Operands operands;
};
constexpr std::array kVerbs{
    Verb{"down", Action::KeyDown, Operands::Key},           Verb{"up", Action::KeyUp, Operands::Key},
    Verb{"move", Action::MouseMove, Operands::Point},       Verb{"press", Action::MousePress, Operands::Point},
    Verb{"release", Action::MouseRelease, Operands::Point}, Verb{"shot", Action::Shot, Operands::File},
    Verb{"close", Action::Close, Operands::None},
};

/// What the number of a line counts: the word before it, and the first number.
struct CountWord {
    std::string_view word;
    ScriptLine::Count count;
    std::uint64_t first;
    std::string_view wanted;
};
constexpr CountWord kGameFrames{"", ScriptLine::Count::GameFrames, 0, "the number of a game frame, from 0,"};
constexpr std::array kCounts{
    CountWord{"picture", ScriptLine::Count::Pictures, 1, "the number of a picture, from 1,"},
    CountWord{"time", ScriptLine::Count::Milliseconds, 0, "a number of milliseconds, from 0,"},
};

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes the first word off `rest`.
std::string_view takeWord(std::string_view& rest) {
    const auto word = rest.substr(0, rest.find_first_of(" \t"));
    rest = trimmed(rest.substr(word.size()));
    return word;
}

template <class Number>
bool parseNumber(std::string_view text, Number& number) {
    const auto* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

/// What is wrong with the operands; empty when they are in `line`.
std::string takeOperands(Operands operands, std::string_view rest, ScriptLine& line) {
    switch (operands) {
        case Operands::None: return rest.empty() ? "" : "nothing is wanted after \"close\"";
        case Operands::Key:
            line.name = rest;
            return namedKey(rest, true) ? "" : "no key is named \"" + line.name + "\"";
        case Operands::Point: {
            const bool numbers = parseNumber(takeWord(rest), line.x) && parseNumber(takeWord(rest), line.y);
            return numbers && rest.empty() ? "" : "two whole numbers are wanted, X and Y";
        }
        case Operands::File: {
            line.name = rest;
            constexpr std::string_view kEnd = ".png";
            return rest.size() > kEnd.size() && rest.ends_with(kEnd) ? "" : "a file name ending in .png is wanted";
        }
    }
    return "";
}

/// What is wrong with the text of one line; empty when it is in `line`.
std::string parseLine(std::string_view text, ScriptLine& line) {
    if (text == "stay") {
        line.count = ScriptLine::Count::Pictures;
        line.action = Action::Stay;
        return "";
    }
    auto number = takeWord(text);
    const auto* counted = std::ranges::find(kCounts, number, &CountWord::word);
    if (counted == kCounts.end())
        counted = &kGameFrames;
    else
        number = takeWord(text);
    line.count = counted->count;
    if (!parseNumber(number, line.number) || line.number < counted->first) {
        return std::string(counted->wanted) + " is wanted instead of \"" + std::string(number) + "\"";
    }
    const auto word = takeWord(text);
    const auto* verb = std::ranges::find(kVerbs, word, &Verb::word);
    if (verb == kVerbs.end()) {
        return "down, up, move, press, release, shot or close is wanted instead of \"" + std::string(word) + "\"";
    }
    line.action = verb->action;
    return takeOperands(verb->operands, text, line);
}

}  // namespace

std::optional<std::vector<ScriptLine>> parseScript(std::string_view text, std::string& error) {
    std::vector<ScriptLine> lines;
    for (int number = 1; !text.empty(); ++number) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto content = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (content.empty() || content.front() == '#') continue;
        const auto fault = parseLine(content, lines.emplace_back());
        if (fault.empty()) continue;
        error = "line " + std::to_string(number) + ": " + fault;
        return std::nullopt;
    }
    std::ranges::stable_sort(lines, {}, &ScriptLine::number);
    return lines;
}

}  // namespace platform
