#include "game_player.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "game_text.h"

namespace grub {

namespace {

const RecordedState* stateOf(const RecordedGame& game, int frame) {
    const auto found = std::ranges::lower_bound(game.states, frame, {}, &RecordedState::frame);
    return found != game.states.end() && found->frame == frame ? &*found : nullptr;
}

/// The last recorded state that is not later.
const RecordedState& stateBefore(const RecordedGame& game, int frame) {
    const auto next = std::ranges::upper_bound(game.states, frame, {}, &RecordedState::frame);
    return next == game.states.begin() ? *next : *(next - 1);
}

RecordedEnd endOf(const World& world) {
    return {.frame = world.frame(),
            .cause = world.ended() ? world.cause() : LossCause::Quit,
            .score = world.score(),
            .keys = world.keysRemaining()};
}

std::string told(const World& world) {
    const RecordedEnd now = endOf(world);
    return (world.ended() ? std::string(nameOf(now.cause)) : "goes on") + ", score " + std::to_string(now.score) +
           ", keys " + std::to_string(now.keys);
}

std::string told(const RecordedGame& game, int frame) {
    const RecordedEnd& end = *game.end;
    if (frame < end.frame) return "goes on";
    return std::string(nameOf(end.cause)) + ", score " + std::to_string(end.score) + ", keys " +
           std::to_string(end.keys);
}

bool endAgrees(const RecordedGame& game, const World& world) {
    if (world.frame() == game.end->frame)
        return endOf(world) == *game.end && world.ended() == (game.end->cause != LossCause::Quit);
    return !world.ended();
}

}  // namespace

bool isOver(const RecordedGame& game, const World& world) {
    return world.frame() > 0 && (world.ended() || (game.end && world.frame() >= game.end->frame));
}

std::optional<std::string> differenceAt(const RecordedGame& game, const World& world) {
    assert(game.isComplete());
    const int frame = world.frame();
    const std::string where = "frame " + std::to_string(frame) + ": ";
    if (frame > 0 && !endAgrees(game, world))
        return where + "recorded " + told(game, frame) + "; played " + told(world);
    const RecordedState* const state = stateOf(game, frame);
    if (state != nullptr && state->hash != world.stateHash()) return where + "the hash of the state differs";
    return std::nullopt;
}

std::string drawBoth(const RecordedGame& game, const World& world) {
    const RecordedState& state = stateBefore(game, world.frame());
    const auto recorded = drawField(world.map(), state.marks);
    const auto played = drawField(world.map(), marksOf(world));
    std::string captions[] = {"recorded, frame " + std::to_string(state.frame),
                              "played, frame " + std::to_string(world.frame())};
    captions[0].resize(std::max(captions[0].size(), recorded.front().size()), ' ');
    std::string text = captions[0] + "   " + captions[1] + "\n";
    for (std::size_t row = 0; row < recorded.size(); ++row)
        text += recorded[row] + std::string(captions[0].size() + 3 - recorded[row].size(), ' ') + played[row] + "\n";
    return text;
}

bool replay(const RecordedGame& game, World& world) {
    KeyFeed keys(game.events);
    while (!differenceAt(game, world)) {
        if (isOver(game, world)) return true;
        playFrame(world, keys);
    }
    return false;
}

GameRecorder::GameRecorder(std::string level, const WorldStart& start) {
    game_.level = std::move(level);
    game_.start = start;
}

void GameRecorder::event(const World& world, KeyAction action, PlayKey key) {
    game_.events.push_back({world.frame() + 1, action, key});
}

void GameRecorder::frame(const World& world) {
    const bool isOver = world.frame() > 0 && world.ended();
    const bool isLeft = isOver && (world.cause() == LossCause::Quit || world.cause() == LossCause::Load);
    if (isLeft) return;
    last_ = {world.frame(), world.stateHash(), marksOf(world)};
    end_ = {.frame = world.frame(),
            .cause = isOver ? world.cause() : LossCause::Quit,
            .score = world.score(),
            .keys = world.keysRemaining()};
    if (world.frame() % kStateInterval == 0) game_.states.push_back(last_);
}

RecordedGame GameRecorder::game() const {
    RecordedGame game = game_;
    if (game.states.empty() || game.states.back().frame != last_.frame) game.states.push_back(last_);
    std::erase_if(game.events, [this](const KeyEvent& event) { return event.frame > end_.frame; });
    game.end = end_;
    return game;
}

bool record(RecordedGame& game, World& world) {
    if (game.end && game.end->cause != LossCause::Quit) game.end.reset();
    GameRecorder recorder(game.level, game.start);
    KeyFeed keys(game.events);
    recorder.frame(world);
    while (!isOver(game, world)) {
        if (world.frame() == kLongestGame) return false;
        playFrame(world, keys);
        recorder.frame(world);
    }
    const RecordedGame played = recorder.game();
    game.states = played.states;
    game.end = played.end;
    return true;
}

}  // namespace grub
