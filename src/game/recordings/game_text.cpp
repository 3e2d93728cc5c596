#include "game_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>

#include "level_list.h"
#include "whole_file.h"

namespace grub {

// The writer of recorded games, and what authors do to their texts.

namespace {

std::string cellText(CellPosition cell) { return std::to_string(cell.x) + "," + std::to_string(cell.y); }

std::string stateLine(const RecordedState& state) {
    char hash[17];
    std::snprintf(hash, sizeof(hash), "%016llx", static_cast<unsigned long long>(state.hash));
    std::string line = std::to_string(state.frame) + " hash " + hash;
    for (const FieldMark& mark : state.marks) line += std::string(" ") + mark.symbol + cellText(mark.cell);
    return line + "\n";
}

std::string endLine(const RecordedEnd& end) {
    return std::to_string(end.frame) + " end " + std::string(nameOf(end.cause)) + " score " +
           std::to_string(end.score) + " keys " + std::to_string(end.keys) + "\n";
}

std::string startLines(const RecordedGame& game) {
    const WorldStart& start = game.start;
    std::string text = "level " + game.level + "\nindex " + std::to_string(start.levelIndex) + "\nseed " +
                       std::to_string(start.seed) + "\n";
    if (start.score != 0) text += "score " + std::to_string(start.score) + "\n";
    if (start.lives != kStartLives) text += "lives " + std::to_string(start.lives) + "\n";
    if (!start.collectedKeys.empty()) text += "taken";
    for (const CellPosition cell : start.collectedKeys) text += " " + cellText(cell);
    return start.collectedKeys.empty() ? text : text + "\n";
}

/// What a line of a game's text is about.
struct LineTopic {
    int frame = -1;          // -1 for lines without one
    std::string_view what;   // the word behind the frame
    std::string_view cause;  // the word behind that
};

LineTopic topicOf(std::string_view line) {
    const auto lines = textLines(line);
    if (lines.empty()) return {};
    WordReader words(lines.front());
    const int frame = words.number("", 0);
    if (!words.ok()) return {};
    return {frame, words.word(""), words.word("")};
}

bool isOutcome(const LineTopic& topic) { return topic.what == "hash" || topic.what == "end"; }

/// Takes the first line off `text`, with its end.
std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
    text.remove_prefix(line.size());
    return line;
}

}  // namespace

std::string_view nameOf(LossCause cause) {
    switch (cause) {
        case LossCause::Dog: return "Dog";
        case LossCause::Lady: return "Lady";
        case LossCause::Rat: return "Rat";
        case LossCause::Pit: return "Pit";
        case LossCause::Won: return "Won";
        case LossCause::Quit:
        case LossCause::Load: break;
    }
    return "Quit";
}

std::string writeGame(const RecordedGame& game) {
    std::string text = startLines(game) + "\n";
    for (const KeyEvent& event : game.events) text += std::to_string(event.frame) + " " + textOf(event) + "\n";
    return withOutcome(text, game);
}

std::string draftOf(std::string_view text) {
    std::string draft;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const LineTopic topic = topicOf(line);
        if (!isOutcome(topic) || topic.cause == "Quit") draft += line;
    }
    return draft;
}

std::string withOutcome(std::string_view text, const RecordedGame& game) {
    std::string result;
    auto state = game.states.begin();
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const LineTopic topic = topicOf(line);
        const bool isBehindEnd = game.end && topic.frame > game.end->frame;
        if (isOutcome(topic) || isBehindEnd) continue;
        for (; state != game.states.end() && state->frame < topic.frame; ++state) result += stateLine(*state);
        result += line;
        if (result.back() != '\n') result += '\n';
    }
    for (; state != game.states.end(); ++state) result += stateLine(*state);
    return game.end ? result + endLine(*game.end) : result;
}

// The reader of recorded games.

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
    const bool isMark = !mark.empty() && isMarkSymbol(mark.front());
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

namespace fs = std::filesystem;

std::optional<RecordedGame> loadGame(const std::string& path, std::string& error) {
    const auto text = readWholeText(path);
    TextError fault{.message = "cannot be read"};
    auto game = text ? readGame(*text, fault) : std::nullopt;
    if (!game) error = fault.in(path);
    return game;
}

std::optional<std::string> levelFileOf(const RecordedGame& game, const std::string& gamePath) {
    if (std::ranges::find(kLevelNames, game.level) != kLevelNames.end()) return std::nullopt;
    return (fs::path(gamePath).parent_path() / game.level).string();
}

}  // namespace grub
