// The reader of recorded games.

#include <algorithm>
#include <array>

#include "game_text.h"

namespace grub {

namespace {

LossCause readCause(WordReader& words) {
    constexpr std::string_view kWanted = "a cause (Dog Lady Rat Pit Won Quit)";
    const std::string_view name = words.word(kWanted);
    for (const LossCause cause : {LossCause::Dog, LossCause::Lady, LossCause::Rat, LossCause::Pit, LossCause::Won})
        if (nameOf(cause) == name) return cause;
    if (name != nameOf(LossCause::Quit)) words.fail(kWanted, name);
    return LossCause::Quit;
}

/// Takes "COLUMN,ROW" apart.
std::optional<CellPosition> cellOf(std::string_view text) {
    const auto comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    const auto column = numberIn<int>(text.substr(0, comma));
    const auto row = numberIn<int>(text.substr(comma + 1));
    const auto isOnMap = [](int at) { return at >= 0 && at < kMaxMapSize; };
    if (!column || !row || !isOnMap(*column) || !isOnMap(*row)) return std::nullopt;
    return CellPosition{*column, *row};
}

CellPosition readCell(WordReader& words, std::string_view wanted) {
    const std::string_view word = words.word(wanted);
    const auto cell = cellOf(word);
    if (!cell) words.fail(wanted, word);
    return cell.value_or(CellPosition{});
}

FieldMark readMark(WordReader& words) {
    constexpr std::string_view kWanted = "a mark and its cell, as '@3,4'";
    const std::string_view mark = words.word(kWanted);
    const bool isMark = !mark.empty() && kMarkSymbols.find(mark.front()) != std::string_view::npos;
    const auto cell = isMark ? cellOf(mark.substr(1)) : std::nullopt;
    if (cell) return {mark.front(), *cell};
    words.fail(kWanted, mark);
    return {};
}

std::uint64_t readHash(WordReader& words) {
    constexpr std::string_view kWanted = "a hash of 16 hexadecimal digits";
    const std::string_view digits = words.word(kWanted);
    const auto hash = numberIn<std::uint64_t>(digits, 16);
    if (digits.size() != 16 || !hash) words.fail(kWanted, digits);
    return hash.value_or(0);
}

/// Builds a game line by line: what it starts with, then what happened, in the order of frames.
class GameReader {
public:
    void read(WordReader& words) {
        if (required_ < kRequired.size()) return readRequired(words);
        const std::string_view name = words.peek();
        if (name == "score" || name == "lives" || name == "taken") return readOptional(words);
        readHappening(words);
    }
    /// The game, unless lines are missing.
    std::optional<RecordedGame> finish(TextError& error) {
        if (required_ == kRequired.size() && closing_ == kNone) return std::move(game_);
        error.line = 0;
        error.message = "wanted ";
        error.message += required_ < kRequired.size() ? "a line '" + std::string(kRequired[required_]) + "'"
                                                      : "the end in frame " + std::to_string(closing_);
        error.message += ", found the end of the file";
        return std::nullopt;
    }

private:
    static constexpr std::array<std::string_view, 3> kRequired{"level", "index", "seed"};
    static constexpr int kNone = -1;

    void readRequired(WordReader& words) {
        const std::string_view name = kRequired[required_++];
        words.literal(name);
        if (name == "level") game_.level = words.rest("the level's name");
        if (name == "index")
            game_.start.levelIndex = words.number("an index from 0 to 49", 0, static_cast<int>(kLevelCount) - 1);
        if (name == "seed") game_.start.seed = words.number<std::uint32_t>("a seed from 0 to 4294967295");
    }

    void readOptional(WordReader& words) {
        const std::string_view name = words.word("");
        if (frame_ != kNone || optional_.find(name) != std::string::npos) return words.fail("a frame", name);
        optional_ += name;
        if (name == "score") game_.start.score = words.number("a score from 0", 0);
        if (name == "lives") game_.start.lives = words.number("lives from 0", 0);
        if (name == "taken") readTaken(words);
    }

    void readTaken(WordReader& words) {
        do game_.start.collectedKeys.push_back(readCell(words, "the cell of a key, as '3,4'"));
        while (words.ok() && !words.atEnd());
    }

    /// Behind a state only the end may be of the same frame.
    void readHappening(WordReader& words) {
        if (game_.end) return words.fail("nothing behind the end", words.peek());
        const int earliest = std::max(frame_, 0);
        frame_ = words.number("a game frame from " + std::to_string(earliest), earliest);
        const std::string_view what = words.peek();
        if (what == "end") return readEnd(words);
        if (closing_ != kNone) return words.fail("the end, behind a hash out of turn", what);
        if (!game_.states.empty() && game_.states.back().frame == frame_)
            return words.fail("a frame behind that of the hash", std::to_string(frame_));
        if (what == "hash") return readState(words);
        readEvent(words);
    }

    /// Keys come before the state of their frame.
    void readEvent(WordReader& words) {
        const std::string_view what = words.peek();
        if (what != "down" && what != "up" && what != "other")
            return words.fail("'down', 'up', 'other', 'hash' or 'end'", what);
        if (frame_ == 0) return words.fail("a game frame from 1", "0");
        if (what != "other") return game_.events.push_back(readKeyEvent(frame_, words));
        words.literal("other");
        game_.events.push_back({frame_, KeyAction::Other, {}});
    }

    /// The states stand at their interval; only the last frame has one out of turn.
    void readState(WordReader& words) {
        words.literal("hash");
        RecordedState state{frame_, readHash(words), {}};
        while (words.ok() && !words.atEnd()) state.marks.push_back(readMark(words));
        if (frame_ == nextState_)
            nextState_ += kStateInterval;
        else if (frame_ < nextState_)
            closing_ = frame_;
        else
            words.fail("the hash of frame " + std::to_string(nextState_), std::to_string(frame_) + " hash");
        game_.states.push_back(std::move(state));
    }

    void readEnd(WordReader& words) {
        words.literal("end");
        RecordedEnd end{.frame = frame_, .cause = readCause(words)};
        words.literal("score");
        end.score = words.number("a score", 0);
        words.literal("keys");
        end.keys = words.number("the keys that still lay", 0);
        closing_ = kNone;
        if (!game_.states.empty() && game_.states.back().frame != frame_)
            words.fail("the hash of frame " + std::to_string(std::min(nextState_, frame_)), "end");
        game_.end = end;
    }

    RecordedGame game_;
    std::size_t required_ = 0;  // lines read of those that every game has
    std::string optional_;      // names of the others that it has
    int frame_ = kNone;         // of the last line that had one
    int nextState_ = 0;         // frame of the next hash
    int closing_ = kNone;       // frame of a hash out of turn: the end must follow
};

}  // namespace

std::optional<RecordedGame> readGame(std::string_view text, TextError& error) {
    GameReader reader;
    for (const TextLine& line : textLines(text)) {
        WordReader words(line);
        reader.read(words);
        words.finish();
        if (!words.ok()) {
            error = words.error();
            return std::nullopt;
        }
    }
    return reader.finish(error);
}

}  // namespace grub
