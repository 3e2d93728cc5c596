#include "source_lines.h"

#include <charconv>
#include <cmath>
#include <sstream>

namespace grub {

std::vector<SourceLine> sourceLines(std::string_view text) {
    std::vector<SourceLine> lines;
    std::istringstream stream{std::string(text)};
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number) {
        std::istringstream blanks(line.substr(0, line.find(';')));
        SourceLine source{number, {}};
        for (std::string word; blanks >> word;) source.words.push_back(word);
        if (!source.words.empty()) lines.push_back(source);
    }
    return lines;
}

bool refuse(TextError& error, int line, std::string_view wanted, std::string_view found) {
    error.line = line;
    error.message = "wanted " + std::string(wanted) + ", found '" + std::string(found) + "'";
    return false;
}

std::optional<double> numberOf(std::string_view word) {
    double value = 0;
    const char* end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, value);
    if (result.ec != std::errc{} || result.ptr != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

bool readNumber(std::string_view word, double low, double high, int line, double& value, TextError& error) {
    const auto number = numberOf(word);
    if (!number || *number < low || *number > high) {
        std::ostringstream wanted;
        wanted << "a number from " << low << " to " << high;
        return refuse(error, line, wanted.str(), word);
    }
    value = *number;
    return true;
}

std::optional<double> noteFrequency(std::string_view word) {
    constexpr std::string_view kNames = "C D EF G A B";
    if (word.size() < 2 || word.size() > 3 || word[0] == ' ') return std::nullopt;
    const auto step = kNames.find(word[0]);
    const char octave = word.back();
    if (step == std::string_view::npos || octave < '0' || octave > '8') return std::nullopt;
    int semitone = static_cast<int>(step) + 12 * (octave - '0');
    if (word.size() == 3) {
        if (word[1] != '#' && word[1] != 'b') return std::nullopt;
        semitone += word[1] == '#' ? 1 : -1;
    }
    constexpr int kA4 = 9 + 12 * 4;
    return 440 * std::pow(2, (semitone - kA4) / 12.0);
}

bool readPitch(std::string_view word, int line, double& hertz, TextError& error) {
    if (const auto note = noteFrequency(word)) {
        hertz = *note;
        return true;
    }
    const auto number = numberOf(word);
    if (!number || *number < 1 || *number > 20000)
        return refuse(error, line, "a note or a number of Hz from 1 to 20000", word);
    hertz = *number;
    return true;
}

}  // namespace grub
