#include "book_level.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "level_list.h"
#include "recorded_wins.h"
#include "whole_file.h"

namespace grub {

namespace {

/// `folder`/turma/level01.txt for a name of the level list.
std::filesystem::path sourceOf(const std::string& folder, std::string_view name) {
    std::string path(name.substr(kLevelFolder.size()));
    std::ranges::replace(path, '\\', '/');
    return (std::filesystem::path(folder) / path).replace_extension(".txt");
}

}  // namespace

std::optional<std::vector<BookLevel>> openBook(const std::string& folder, const AnimationFrameCounts& counts,
                                               std::string& error) {
    const auto tableBytes = readWholeFile(folder + "/typeblok.ini");
    error = folder + "/typeblok.ini: cannot be read";
    if (!tableBytes) return std::nullopt;
    TableSource table(*tableBytes);
    std::vector<BookLevel> book;
    for (std::size_t index = 0; index < kLevelNames.size(); ++index) {
        const auto source = sourceOf(folder, kLevelNames[index]);
        const auto text = readWholeText(source);
        if (!text) continue;
        std::vector<TextError> faults;
        auto level = openForChecks(*text, table, counts, faults);
        if (!level) error = faults.front().in(source.string());
        if (!level) return std::nullopt;
        auto wins = openWins(source, *level, error);
        if (!wins) return std::nullopt;
        book.push_back({index, std::move(*level), std::move(wins->games), std::move(wins->measures)});
    }
    error = folder + ": holds no level of the list";
    return book.empty() ? std::nullopt : std::optional(std::move(book));
}

}  // namespace grub
