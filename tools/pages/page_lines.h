#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace grub {

/// Where a line of a page's text stands.
struct LinePlace {
    std::string file;
    int number = 0;

    /// "FILE:LINE: message".
    std::string says(const std::string& message) const;
    /// The name of the text: its file without folder and extension.
    std::string page() const;
};

/// A word of a line. What stands in quotes is one word, blanks and all.
struct PageWord {
    std::string text;
    bool quoted = false;
};

/// A statement: blocks are put in, repetitions written out, `{...}` filled in. Numbers are not computed yet.
struct PageLine {
    LinePlace place;
    std::vector<PageWord> words;  // at least one
    /// What `i` stands for in its numbers: which repetition it is, from 0 on.
    int index = 0;
};

/// Numbers that have names.
using Measures = std::map<std::string, double, std::less<>>;

/// All statements of an interface, in order.
struct PageLines {
    std::vector<PageLine> lines;
    Measures measures;
};

/// Gives the text of a file; nothing when there is none.
using TextSource = std::function<std::optional<std::string>(const std::string& file)>;

/// Reads a text and those that its `page` lines name, which lie in the same folder. Lists, blocks and measures hold
/// from their line on, also in the texts that follow. Nothing when a line is wrong: then `error` tells of the first.
std::optional<PageLines> readPageLines(const std::string& file, const TextSource& texts, std::string& error);

}  // namespace grub
