#include "source_lines.h"

#include <cmath>
#include <sstream>

#include "text_lines.h"

namespace grub {

std::vector<SourceLine> sourceLines(std::string_view text) {
    std::vector<SourceLine> lines;
    for (const TextLine& line : textLines(text, ';')) lines.push_back({line.number, splitWords(line.content)});
    return lines;
}

bool refuse(TextError& error, int line, std::string_view wanted, std::string_view found) {
    error = wantedButFound(line, wanted, inQuotes(found));
    return false;
}

bool readNumber(std::string_view word, double low, double high, int line, double& value, TextError& error) {
    const auto number = numberIn<double>(word);
    if (!number || !(*number >= low && *number <= high)) {  // "nan" is in no range
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
    const auto number = numberIn<double>(word);
    if (!number || !(*number >= 1 && *number <= 20000))
        return refuse(error, line, "a note or a number of Hz from 1 to 20000", word);
    hertz = *number;
    return true;
}

}  // namespace grub
