#include "high_scores.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <system_error>

#include "file_stream.h"
#include "replace_file.h"
#include "score_file.h"

namespace grub {
namespace {

std::optional<HighScoreTable> readTable(const EngineString& path) {
    std::array<std::uint8_t, kScoreFileSize> bytes{};
    const auto count = FileStream(path, kOpenRead).read(bytes.data(), kScoreFileSize);
    if (count < 0) return std::nullopt;
    return tableFrom(std::span(bytes).first(static_cast<std::size_t>(count)));
}

// A link that leads nowhere exists: what it leads to may come back with its disk.
bool exists(const EngineString& path) {
    std::error_code failure;
    return std::filesystem::symlink_status(path.cStr(), failure).type() != std::filesystem::file_type::not_found;
}

bool moveOutOfTheWay(const EngineString& path) {
    constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    const EngineString old = path + ".old";
    return !exists(old) && MoveFileExA(path.cStr(), old.cStr(), kHow) != FALSE;
}

}  // namespace

bool HighScoreTable::qualifies(int score) const {
    return score > 0 && (rows_.size() < kHighScoreRows || score > rows_.back().score);
}

void HighScoreTable::add(const HighScoreEntry& entry) {
    if (rows_.size() == kHighScoreRows) rows_.pop_back();
    const auto below = std::ranges::upper_bound(rows_, entry.score, std::ranges::greater{}, &HighScoreEntry::score);
    rows_.insert(below, entry);
}

void HighScores::add(const HighScoreEntry& entry) {
    table_.add(entry);
    unsaved_.push_back(entry);
}

bool HighScores::load() {
    const auto read = readTable(path_);
    if (!read) return false;
    table_ = *read;
    for (const HighScoreEntry& entry : unsaved_) {
        if (table_.qualifies(entry.score)) table_.add(entry);
    }
    return true;
}

void HighScores::save() {
    const bool canReplace = load() || !exists(path_) || (!unsaved_.empty() && moveOutOfTheWay(path_));
    if (canReplace && replaceFile(path_, scoreBytes(table_))) unsaved_.clear();
}

}  // namespace grub
