#include "level_source.h"

#include <algorithm>

#include "rules.h"
#include "text_lines.h"

namespace grub {

namespace {

using Words = std::vector<std::string_view>;

/// Reads the lines of one source in order. A handler fills the error before it returns false.
class SourceParser {
public:
    explicit SourceParser(TextError& error) : error_(error) {}

    bool read(std::string_view line) {
        ++line_;
        return inField_ ? fieldRow(line) : statement(splitWords(line));
    }

    std::optional<LevelSource> finish() {
        if (inField_)
            fail("a line 'end' after the playing field", "the end of the file");
        else if (source_.field.empty())
            fail("a playing field between 'field' and 'end'", "none");
        else if (source_.world.empty())
            fail("a line 'world NAME'", "none");
        else
            return std::move(source_);
        return std::nullopt;
    }

private:
    bool fail(std::string_view wanted, std::string_view found) {
        error_ = wantedButFound(line_, wanted, found);
        return false;
    }

    bool statement(const Words& words) {
        if (words.empty() || words[0].starts_with('#')) return true;
        const std::string_view word = words[0];
        if (word == "idea") return true;  // for people
        if (word == "title") return title(words);
        if (word == "world") return world(words);
        if (word == "legend") return legend(words);
        if (word == "field") return beginField(words);
        if (word == "bytes") return freeBytes(words);
        if (word == "way") return way(words);
        const auto slot = std::find(kSlotWords.begin(), kSlotWords.end(), word);
        if (slot != kSlotWords.end())
            return placement(kAllSlots[static_cast<std::size_t>(slot - kSlotWords.begin())], words);
        return fail(
            "title, idea, world, legend, field, way, base, layer2 to layer5, object, bytes or a comment behind '#'",
            inQuotes(word));
    }

    bool title(const Words& words) {
        source_.title = restOf(words);
        return true;
    }

    bool world(const Words& words) {
        if (words.size() != 2) return fail("'world NAME'", std::to_string(words.size() - 1) + " words after it");
        source_.world = words[1];
        source_.worldLine = line_;
        return true;
    }

    bool legend(const Words& words) {
        if (words.size() != 3 || words[1].size() != 1) return fail("'legend CHARACTER BLOCK'", quotedRest(words));
        const bool isNew = source_.legend.try_emplace(words[1][0], LegendEntry{std::string(words[2]), line_}).second;
        return isNew || fail("one meaning of each character", "a second one of " + inQuotes(words[1]));
    }

    bool beginField(const Words& words) {
        if (words.size() != 1) return fail("'field' alone in its line", quotedRest(words));
        if (!source_.field.empty()) return fail("one playing field", "a second one");
        source_.fieldLine = line_ + 1;
        inField_ = true;
        return true;
    }

    bool fieldRow(std::string_view line) {
        const std::string_view row = line.substr(0, line.find_last_not_of(" \t") + 1);
        if (row == "end") {
            inField_ = false;
            return !source_.field.empty() || fail("at least one row of the playing field", "'end'");
        }
        if (row.empty() || row.size() > kMaxMapSize)
            return fail("1 to 100 columns", std::to_string(row.size()) + " (is 'end' missing?)");
        if (!source_.field.empty() && row.size() != source_.field.front().size()) {
            const std::size_t columns = source_.field.front().size();
            fail(std::to_string(columns) + " columns as in the first row", std::to_string(row.size()));
            error_.column = static_cast<int>(std::min(columns, row.size())) + 1;
            return false;
        }
        if (source_.field.size() == kMaxMapSize) return fail("at most 100 rows", "one more");
        source_.field.emplace_back(row);
        return true;
    }

    bool placement(Slot slot, const Words& words) {
        if (words.size() < 4 || words.size() % 2 != 0)
            return fail("'" + std::string(words[0]) + " NAME COLUMN ROW [COLUMN ROW ...]'", quotedRest(words));
        return eachCell(words, 2, [&](int column, int row) {
            source_.placements.push_back({slot, std::string(words[1]), column, row, line_});
        });
    }

    bool way(const Words& words) {
        if (words.size() < 3 || words.size() % 2 == 0)
            return fail("'way COLUMN ROW [COLUMN ROW ...]'", quotedRest(words));
        return eachCell(words, 1, [&](int column, int row) { source_.way.push_back({column, row}); });
    }

    template <class Action>
    bool eachCell(const Words& words, std::size_t first, Action action) {
        for (std::size_t i = first; i < words.size(); i += 2) {
            const auto column = numberIn<std::uint16_t>(words[i]);
            const auto row = numberIn<std::uint16_t>(words[i + 1]);
            if (!column || !row)
                return fail("a column and a row, counted from 0", inQuotes(column ? words[i + 1] : words[i]));
            action(*column, *row);
        }
        return true;
    }

    bool freeBytes(const Words& words) {
        const std::string_view digits = words.size() == 2 ? words[1] : std::string_view();
        if (digits.size() != 2 * source_.freeBytes.size())
            return fail("'bytes' and 46 hexadecimal digits", quotedRest(words));
        for (std::size_t i = 0; i < source_.freeBytes.size(); ++i) {
            const std::string_view pair = digits.substr(2 * i, 2);
            const auto byte = numberIn<std::uint8_t>(pair, 16);
            if (!byte) return fail("hexadecimal digits", inQuotes(pair));
            source_.freeBytes[i] = *byte;
        }
        return true;
    }

    static std::string restOf(const Words& words) {
        std::string rest;
        for (std::size_t i = 1; i < words.size(); ++i) rest += (i > 1 ? " " : "") + std::string(words[i]);
        return rest;
    }

    static std::string quotedRest(const Words& words) {
        const std::string rest = restOf(words);
        return rest.empty() ? "nothing" : inQuotes(rest);
    }

    TextError& error_;
    LevelSource source_;
    int line_ = 0;
    bool inField_ = false;
};

}  // namespace

const FieldCharacter* fieldCharacter(char character) {
    const auto row = std::find_if(kFieldCharacters.begin(), kFieldCharacters.end(),
                                  [&](const FieldCharacter& entry) { return entry.character == character; });
    return row == kFieldCharacters.end() ? nullptr : &*row;
}

std::optional<LevelSource> parseLevelSource(std::string_view text, TextError& error) {
    SourceParser parser(error);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (!parser.read(line)) return std::nullopt;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parser.finish();
}

}  // namespace grub
