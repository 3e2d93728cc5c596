// The writer of recorded games, and what authors do to their texts.

#include "game_text.h"

#include <algorithm>
#include <cstdio>

namespace grub {

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

}  // namespace grub
