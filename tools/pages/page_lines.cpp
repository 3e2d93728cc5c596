#include "page_lines.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string_view>

#include "line_reader.h"
#include "text_lines.h"

namespace grub {

namespace {

/// More repetitions than any page needs.
constexpr int kMostRepeats = 100;

/// Words inside braces that are filled in only when a frame is drawn.
constexpr std::string_view kFrame = "frame";

/// The words of a line; nothing when a quote does not close.
std::optional<std::vector<PageWord>> wordsOf(std::string_view line) {
    std::vector<PageWord> words;
    while (!(line = trimmed(line)).empty()) {
        if (line.front() == '"') {
            const std::size_t end = line.find('"', 1);
            if (end == std::string_view::npos) return std::nullopt;
            words.push_back({std::string(line.substr(1, end - 1)), true});
            line.remove_prefix(end + 1);
        } else {
            const std::string_view word = firstWord(line);
            words.push_back({std::string(word), false});
            line.remove_prefix(word.size());
        }
    }
    return words;
}

/// Reads texts in order; `fail` keeps the first fault.
class PageLineReader {
public:
    PageLineReader(const TextSource& texts, std::string& error) : texts_(texts), error_(error) {}

    bool readFile(const std::string& file, const LinePlace& from) {
        if (!read_.insert(file).second) return fail(from, "a text that has not been read yet", inQuotes(file));
        const auto text = texts_(file);
        if (!text) return fail(from, "a text of a page", inQuotes(file));
        for (const TextLine& line : textLines(*text)) {
            const auto words = wordsOf(line.content);
            const LinePlace place{file, line.number};
            if (!words) return fail(place, "a quote at the end of the words", "the end of the line");
            if (!statement({place, *words, 0})) return false;
        }
        return block_.empty() || fail({file, 0}, "'end' of the block " + inQuotes(block_), "the end of the file");
    }

    PageLines take() { return std::move(result_); }

private:
    using Lines = std::vector<PageLine>;

    bool fail(const LinePlace& place, const std::string& wanted, const std::string& found) {
        if (error_.empty()) error_ = place.says("wanted " + wanted + ", found " + found);
        return false;
    }

    bool statement(const PageLine& line) {
        if (!block_.empty()) return insideBlock(line);
        const std::string& tag = line.words[0].text;
        if (tag == "page") return include(line);
        if (tag == "list") return list(line);
        if (tag == "measure") return measure(line);
        if (tag == "block") return beginBlock(line);
        if (tag == "use") return useBlock(line);
        return repeat(line);
    }

    /// The one word behind the tag.
    bool oneName(const PageLine& line, std::string& name) {
        LineReader reader(line, result_.measures);
        name = reader.word("a name");
        reader.finish();
        if (!reader.ok()) error_ = reader.error();
        return reader.ok();
    }

    bool include(const PageLine& line) {
        std::string name;
        if (!oneName(line, name)) return false;
        const auto folder = std::filesystem::path(line.place.file).parent_path();
        return readFile((folder / (name + ".txt")).string(), line.place);
    }

    bool list(const PageLine& line) {
        if (line.words.size() < 3) return fail(line.place, "'list NAME WORDS...'", "a list without words");
        auto& words = lists_[line.words[1].text];
        words.clear();
        for (std::size_t i = 2; i < line.words.size(); ++i) words.push_back(line.words[i].text);
        return true;
    }

    bool measure(const PageLine& line) {
        LineReader reader(line, result_.measures);
        const std::string name = reader.word("the name of a measure");
        const double value = reader.number("its value");
        reader.finish();
        if (!reader.ok()) {
            error_ = reader.error();
            return false;
        }
        result_.measures[name] = value;
        return true;
    }

    bool beginBlock(const PageLine& line) {
        if (!oneName(line, block_)) return false;
        blocks_[block_].clear();
        return true;
    }

    /// A panel inside a block has an end of its own.
    bool insideBlock(const PageLine& line) {
        const std::string& tag = line.words[0].text;
        if (tag == "end" && openPanels_ == 0) {
            block_.clear();
            return true;
        }
        if (tag == "use" || tag == "page" || tag == "block")
            return fail(line.place, "lines of a page inside a block", inQuotes(tag));
        if (tag == "panel") ++openPanels_;
        if (tag == "end") --openPanels_;
        blocks_[block_].push_back(line);
        return true;
    }

    bool useBlock(const PageLine& line) {
        std::string name;
        if (!oneName(line, name)) return false;
        const auto block = blocks_.find(name);
        if (block == blocks_.end()) return fail(line.place, "the name of a block", inQuotes(name));
        const Lines lines = block->second;
        return std::ranges::all_of(lines, [this](const PageLine& inner) { return statement(inner); });
    }

    /// How often "TAG*3" or "TAG*LIST" stands for a statement, which loses what is behind the tag.
    std::optional<int> takeCount(PageLine& line) {
        std::string& tag = line.words[0].text;
        const std::size_t star = tag.find('*');
        if (star == std::string::npos) return 1;
        const std::string count = tag.substr(star + 1);
        tag.resize(star);
        if (const auto known = lists_.find(count); known != lists_.end()) return static_cast<int>(known->second.size());
        const auto number = numberIn<int>(count);
        if (number && *number >= 1 && *number <= kMostRepeats) return number;
        fail(line.place, "a list or a number from 1 to 100 behind '*'", inQuotes(count));
        return std::nullopt;
    }

    bool repeat(PageLine line) {
        const auto count = takeCount(line);
        if (!count) return false;
        for (line.index = 0; line.index < *count; ++line.index) {
            PageLine filled = line;
            for (PageWord& word : filled.words) {
                if (!fill(word.text, line, *count)) return false;
            }
            append(filled);
        }
        return true;
    }

    /// A bar alone separates statements that are repeated together.
    void append(const PageLine& line) {
        PageLine part{line.place, {}, line.index};
        for (const PageWord& word : line.words) {
            const bool bar = !word.quoted && word.text == "|";
            if (!bar) part.words.push_back(word);
            if (!bar || part.words.empty()) continue;
            result_.lines.push_back(part);
            part.words.clear();
        }
        if (!part.words.empty()) result_.lines.push_back(part);
    }

    /// {0} and {1} count from there, {02} counts from 00, {count} is how many there are, {LIST} is a word of that list.
    bool fill(std::string& text, const PageLine& line, int count) {
        std::size_t open = 0;
        while ((open = text.find('{', open)) != std::string::npos) {
            const std::size_t close = text.find('}', open);
            const std::string name = text.substr(open + 1, close == std::string::npos ? close : close - open - 1);
            std::string value;
            if (name == "0" || name == "1") {
                value = std::to_string(line.index + (name == "1" ? 1 : 0));
            } else if (name == "02") {
                value = std::string(line.index < 10 ? "0" : "") + std::to_string(line.index);
            } else if (name == "count") {
                value = std::to_string(count);
            } else if (name == kFrame) {
                value = "{frame}";
            } else if (const auto list = lists_.find(name);
                       list != lists_.end() && static_cast<std::size_t>(line.index) < list->second.size()) {
                value = list->second[static_cast<std::size_t>(line.index)];
            } else {
                return fail(line.place, "{0}, {1}, {02}, {count}, {frame} or the name of a list that is long enough",
                            inQuotes('{' + name + '}'));
            }
            text.replace(open, name.size() + 2, value);
            open += value.size();
        }
        return true;
    }

    const TextSource& texts_;
    std::string& error_;
    PageLines result_;
    std::map<std::string, std::vector<std::string>> lists_;
    std::map<std::string, Lines> blocks_;
    std::string block_;  // the one that is being read
    std::set<std::string> read_;
    int openPanels_ = 0;
};

}  // namespace

std::string LinePlace::says(const std::string& message) const { return TextError{number, message}.in(file); }

std::string LinePlace::page() const { return std::filesystem::path(file).stem().string(); }

std::optional<PageLines> readPageLines(const std::string& file, const TextSource& texts, std::string& error) {
    PageLineReader reader(texts, error);
    if (!reader.readFile(file, {file, 0})) return std::nullopt;
    return reader.take();
}

}  // namespace grub
