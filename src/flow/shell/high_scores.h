#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine_string.h"

namespace grub {

/// Characters of a name in the table of the best games.
inline constexpr std::size_t kNameLength = 6;
/// Rows that the table can have.
inline constexpr std::size_t kHighScoreRows = 10;

/// A row of the table: one game.
struct HighScoreEntry {
    EngineString name;  // at most `kNameLength` characters
    int score = 0;
    int levelIndex = 0;  // where the game ended, 0 to 49; shown as this plus 1

    bool operator==(const HighScoreEntry&) const = default;
};

/// The best games, best first.
class HighScoreTable {
public:
    /// At most `kHighScoreRows`. Valid until the table changes.
    [[nodiscard]] std::span<const HighScoreEntry> rows() const { return rows_; }
    /// Whether a game with this score gets a row: there must be a free row, or the score must beat the lowest one. A
    /// score of 0 gets none.
    [[nodiscard]] bool qualifies(int score) const;
    /// Gives the game its row, below rows with the same score. A full table loses its lowest row first, whatever the
    /// score: ask `qualifies` before.
    void add(const HighScoreEntry& entry);

    bool operator==(const HighScoreTable&) const = default;

private:
    std::vector<HighScoreEntry> rows_;
};

/// The table in a file of the player's (docs/formats/scores.md). No row is lost because the file cannot be read or
/// written for a while: a new one stays here until the file has it. Shows no message. Game thread only.
class HighScores {
public:
    /// Reads nothing yet. The name is one of the working directory.
    explicit HighScores(const EngineString& path = "GrubScore.sco") : path_(path) {}

    /// What the file held when it was read last, with the rows that it lacks.
    [[nodiscard]] const HighScoreTable& table() const { return table_; }
    /// As the table's, until the next successful `save` only here.
    void add(const HighScoreEntry& entry);
    /// Reads the file. Without one, or when it cannot be read, the table stays as it is; false then.
    bool load();
    /// Brings the rows that the file lacks into it, and waits for the disk. A file that cannot be read is moved out of
    /// the way, to PATH.old, but only for a new row and only while no PATH.old exists; else nothing is written.
    void save();

private:
    EngineString path_;
    HighScoreTable table_;
    std::vector<HighScoreEntry> unsaved_;  // rows that the file lacks
};

}  // namespace grub
